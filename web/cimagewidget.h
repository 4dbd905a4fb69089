#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

// One image, centred on white: at its natural size, or scaled down in proportion when it does not
// fit. Never enlarged. What cannot be read as an image shows plain white.
class CImageWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CImageWidget(QWidget *pParent = nullptr);

    // The suffix of the name decides the image format. If the content has another format, nothing
    // is shown (see pictures.h).
    void setImageFile(const QString &strPath);
    void setSvgText(const QString &strText);
    void clearImage();
    // Reads the file again. False when it cannot be read: the image stays as it was.
    bool reload();

    // Empty when the image came from text.
    QString filePath() const { return m_strImageFile; }
    void setFilePath(const QString &strPath) { m_strImageFile = strPath; }
    // File name or "Untitled". An image is never modified.
    QString getTitle() const;
    bool isNull() const { return m_image.isNull(); }
    QSize imageSize() const { return m_image.size(); }

    // The rectangle in which a view of that size draws an image of that size, both in the same
    // unit.
    static QRect targetRect(const QSize &sizeView, const QSize &sizeImage);

protected:
    void paintEvent(QPaintEvent *pEvent) override;

private:
    void setImage(const QImage &image);

    QString m_strImageFile;
    QImage m_image;
    QPixmap m_scaled; // In the size that was painted last. Null before that.
};
