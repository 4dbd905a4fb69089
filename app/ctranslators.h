#pragma once

#include <QTranslator>

class QString;

// The message catalogues of one locale tag ("zh_cn"), installed for as long as the object lives:
// the program's own texts, Qt's texts, and a third name under which no catalogue is carried. A
// missing catalogue is left out without a message, so that other locales run in English. GUI thread
// only; the application object lives longer.
class CTranslators
{
public:
    explicit CTranslators(const QString &strLocale);
    Q_DISABLE_COPY(CTranslators)

private:
    QTranslator m_own;
    QTranslator m_qt;
    QTranslator m_base;
};
