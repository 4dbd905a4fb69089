#include "web/xmlcheck.h"

#include <QXmlStreamReader>

namespace {

class CAnyEntity : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString &) override { return QStringLiteral("x"); }
};

} // namespace

bool isWellFormedXml(const QString &strText)
{
    CAnyEntity entities;
    QXmlStreamReader reader(strText);
    reader.setEntityResolver(&entities);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}
