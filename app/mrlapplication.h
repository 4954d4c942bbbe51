#ifndef MRLAPPLICATION_H
#define MRLAPPLICATION_H

#include "platform/qpeapplication.h"

#include <QByteArray>
#include <QChar>
#include <QString>

class QDialog;
class QStyle;

// The application object: the platform's application plus the user's date and clock
// settings, the screen's resolution class and the optional style library. There is one,
// reachable through instance().
class MRLApplication : public QPEApplication
{
    Q_OBJECT

public:
    MRLApplication(int &argc, char **argv, const QString &name);
    ~MRLApplication() override;

    // The one application object, or null before it is made and after it went.
    static MRLApplication *instance();

    // The platform's clock and date settings, read on first use.
    bool ampm() const;
    bool mondayFirst() const;
    QChar dateSeparator() const;
    int shortOrder() const;
    int longOrder() const;

    // A screen 640 or 480 pixels wide (high), or 240 or 320 wide (low); a desktop is neither.
    static bool isHighResolution();
    static bool isLowResolution();

    // Shows the dialog maximized when asked; otherwise leaves it as it is.
    static void showDialog(QDialog *dialog, bool maximize);

    bool isStyleLibraryLoaded() const { return styleLibrary != nullptr; }

public Q_SLOTS:
    // Messages of the channel "QPE/System": "applyMRLStyle()" loads the style library.
    void mrlAppReceive(const QByteArray &message, const QByteArray &data);
    // Reads the clock and date settings again; a change emits dateTimeSettingChanged().
    void updateDateTimeFormats();

Q_SIGNALS:
    void dateTimeSettingChanged();

private:
    void loadStyleLibrary();
    void unloadStyleLibrary();
    static QString styleLibraryPath();

    void *styleLibrary = nullptr;
    QStyle *libraryStyle = nullptr;
};

#endif
