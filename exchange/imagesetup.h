#ifndef IMAGESETUP_H
#define IMAGESETUP_H

#include <QDialog>
#include <QPixmap>
#include <QStringList>

#include <memory>

namespace Ui
{
class ImageSetupBase;
} // namespace Ui

// Chooses the picture of a record from the image documents and pictures browsed for, and
// lets the user scale it down and turn it. On OK a changed picture may replace the file.
class ImageSetup : public QDialog
{
    Q_OBJECT

public:
    ImageSetup(const QString &path, QWidget *parent = nullptr, const char *name = nullptr);
    ~ImageSetup() override;

    // The path chosen; still the path given when nothing was chosen.
    QString path() const { return m_path; }
    // The picture as shown: scaled and turned.
    QPixmap current() const { return m_current; }
    int angle() const { return m_angle; }
    int zoomValue() const;

public Q_SLOTS:
    void imageSelected(int row);
    // Browses for a picture anywhere; it joins the list and is selected.
    void open();
    // Searches the documents again.
    void reload();
    // Turns the picture by another 90 degrees clockwise.
    void rotate();
    // Scales the picture to value percent.
    void zoom(int value);
    void accept() override;

private:
    // Makes current from the loaded picture, scaled and turned, and shows it.
    void updatePreview();
    void selectPath(const QString &path);
    // Asks whether the changed picture may replace the file, and writes it if so.
    void saveChanges();

    std::unique_ptr<Ui::ImageSetupBase> ui;
    QString m_path;
    QPixmap m_loaded;
    QPixmap m_current;
    int m_angle = 0;
    QStringList m_collected;
};

#endif
