#include "highlight/clinepattern.h"

CLinePattern::CLinePattern(const QString &strPattern, Qt::CaseSensitivity sensitivity)
    : m_bEmpty(strPattern.isEmpty()), m_sensitivity(sensitivity), m_rx(strPattern, sensitivity)
{
    m_bValid = m_rx.isValid();
    if (m_bEmpty || !m_bValid) {
        return;
    }
    if (const std::optional<PatternNode> node = readPattern(strPattern, sensitivity)) {
        m_required = RequiredCharacters(*node, sensitivity);
    }
    if (sensitivity == Qt::CaseSensitive) {
        m_strPlain = plainText(strPattern);
    }
}

// Made when it is first needed, which is in the thread that searches.
// A lookahead is a second machine, and only at the end of the pattern. QRegExp looks at anchors in
// it in a way of its own.
void CLinePattern::makeAutomaton() const
{
    m_bAutomatonMade = true;
    std::optional<PatternNode> read = readPattern(m_rx.pattern(), m_sensitivity);
    if (!read) {
        return;
    }
    PatternNode &node = *read;
    PatternNode ahead;
    if (node.kind == PatternNode::Sequence
        && (node.children.back().kind == PatternNode::Lookahead
            || node.children.back().kind == PatternNode::NegativeLookahead)) {
        ahead = node.children.back();
        node.children.pop_back();
    }
    const auto hasLookahead = [](const PatternNode &n) {
        return n.contains(PatternNode::Lookahead) || n.contains(PatternNode::NegativeLookahead);
    };
    if (hasLookahead(node)) {
        return;
    }
    if (ahead.kind != PatternNode::Nothing) {
        const PatternNode inner = ahead.children.front();
        if (hasLookahead(inner) || inner.contains(PatternNode::LineStart)
            || inner.contains(PatternNode::WordEdge) || inner.contains(PatternNode::NoWordEdge)) {
            return;
        }
        m_ahead.emplace(inner);
        m_bAheadIsNegative = ahead.kind == PatternNode::NegativeLookahead;
    }
    m_automaton.emplace(node);
}

QString CLinePattern::plainText(const QString &strPattern)
{
    QString strPlain;
    for (int n = 0; n < strPattern.size(); ++n) {
        QChar ch = strPattern.at(n);
        if (ch == QLatin1Char('\\')) {
            ++n;
            // A letter or digit behind the backslash has a meaning of its own.
            if (n == strPattern.size() || strPattern.at(n).isLetterOrNumber()) {
                return QString();
            }
            ch = strPattern.at(n);
        } else if (QLatin1String("^$.[](){}*+?|").contains(ch)) {
            return QString();
        }
        strPlain += ch;
    }
    return strPlain;
}

int CLinePattern::indexIn(const QString &strText, int nFrom) const
{
    if (m_bEmpty || !m_bValid) {
        return -1;
    }
    if (!m_strPlain.isEmpty()) {
        return indexOfPlain(strText, nFrom);
    }
    if (!m_bAutomatonMade) {
        makeAutomaton();
    }
    if (m_automaton && m_automaton->isUsable() && (!m_ahead || m_ahead->isUsable())) {
        const int nStart = indexByAutomaton(strText, nFrom);
        if (nStart >= -1) {
            return nStart;
        }
    }
    const int nStart = m_rx.indexIn(strText, nFrom);
    m_nLength = m_rx.matchedLength();
    return nStart;
}

int CLinePattern::indexOfPlain(const QString &strText, int nFrom) const
{
    const QChar chFirst = m_strPlain.at(0);
    m_nLength = m_strPlain.size();
    int nAt = strText.indexOf(chFirst, nFrom);
    while (nAt >= 0 && strText.midRef(nAt, m_nLength) != m_strPlain) {
        nAt = strText.indexOf(chFirst, nAt + 1);
    }
    return nAt;
}

// -2 when the automaton cannot tell: letters that equal others only when case does not count are
// QRegExp's business, and so is a pattern whose machine has grown too large.
int CLinePattern::indexByAutomaton(const QString &strText, int nFrom) const
{
    for (int n = nFrom; n <= strText.size(); ++n) {
        if (n < strText.size()) {
            const QChar ch = strText.at(n);
            if (m_sensitivity == Qt::CaseInsensitive && foldsToAscii(ch)) {
                return -2;
            }
            if (!m_automaton->mayStartWith(symbolOf(ch))) {
                continue;
            }
        }
        const int nEnd = endOfMatch(strText, n);
        if (isDoubtful(*m_automaton) || (m_ahead && isDoubtful(*m_ahead))) {
            return -2;
        }
        if (nEnd >= 0) {
            m_nLength = nEnd - n;
            return n;
        }
    }
    m_nLength = -1;
    return -1;
}

bool CLinePattern::isDoubtful(CPatternAutomaton &automaton) const
{
    return !automaton.isUsable() || (automaton.takeDoubt() && m_sensitivity == Qt::CaseInsensitive);
}

int CLinePattern::endOfMatch(const QString &strText, int nStart) const
{
    if (!m_ahead) {
        return m_automaton->longestEnd(strText, nStart);
    }
    m_lstEnds.clear();
    m_automaton->findEnds(strText, nStart, &m_lstEnds);
    while (!m_lstEnds.empty()) {
        const int nEnd = m_lstEnds.back();
        m_lstEnds.pop_back();
        if ((m_ahead->longestEnd(strText, nEnd) >= 0) != m_bAheadIsNegative) {
            return nEnd;
        }
    }
    return -1;
}
