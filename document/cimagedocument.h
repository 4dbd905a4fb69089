#pragma once

#include "document/cdocument.h"

#include <QPointer>

class CImageWidget;

// A picture, which is shown and never changed.
class CImageDocument : public CDocument
{
    Q_OBJECT

public:
    explicit CImageDocument(QWidget *pViewParent);
    ~CImageDocument() override;

    Kind kind() const override { return Kind::Image; }
    QWidget *widget() const override;
    QString path() const override;
    QString title() const override;

    // A file that holds no picture gives an empty view and no refusal.
    void loadPicture(const QString &strPath);

protected:
    CResult showAgain(const SFileContent &content) override;

private:
    QPointer<CImageWidget> m_pImage;
};
