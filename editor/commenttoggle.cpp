#include "editor/commenttoggle.h"

#include <QRegExp>

namespace {

// Gives the length from each line's start to the end of its marker; empty when a line has none.
QVector<int> markerLengths(const QStringList &lstLines, const QString &strSingle)
{
    QRegExp marker(QStringLiteral("^\\s*%1").arg(strSingle));
    QVector<int> lstLengths;
    for (const QString &strLine : lstLines) {
        const int nIndex = marker.indexIn(strLine);
        if (nIndex < 0)
            return QVector<int>();
        lstLengths.append(nIndex + marker.matchedLength());
    }
    return lstLengths;
}

bool isBlank(const QString &strText)
{
    return strText.trimmed().isEmpty();
}

} // namespace

SCommentToggle toggleOf(const SCommentSelection &selection, const SCommentMarkers &markers)
{
    SCommentToggle toggle;
    const QString &strText = selection.strText;
    if (strText.startsWith(markers.strStart) && strText.endsWith(markers.strEnd)) {
        toggle.action = SCommentToggle::Unwrap;
        toggle.nEndLength = markers.strEnd.length();
        // The two markers may overlap, as in "/*/". Nothing outside of the selection may be removed
        // with them.
        toggle.nStartLength = qMin(markers.strStart.length(), strText.length() - toggle.nEndLength);
        return toggle;
    }
    const bool bSingle = !markers.strSingle.isEmpty();
    if (bSingle) {
        toggle.lstLengths = markerLengths(selection.lstLines, markers.strSingle);
        if (!toggle.lstLengths.isEmpty()) {
            toggle.action = SCommentToggle::Uncomment;
            return toggle;
        }
    }
    const bool bWholeLines = isBlank(selection.strPrefix) && isBlank(selection.strSuffix);
    if (markers.strStart.isEmpty() || (bSingle && bWholeLines))
        toggle.action = SCommentToggle::CommentLines;
    return toggle;
}
