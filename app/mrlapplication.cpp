#include "app/mrlapplication.h"

#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "platform/qcopchannel.h"

#include <QDialog>
#include <QFile>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>

#include <dlfcn.h>

namespace
{
MRLApplication *theApplication = nullptr;

// The width of the desktop, or 0 while there is no screen to ask.
int desktopWidth()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().width() : 0;
}

// Worked out once, as soon as there is a screen.
bool widthIsOneOf(int &kept, int a, int b)
{
    if (kept < 0) {
        const int width = desktopWidth();
        if (width == 0)
            return false;
        kept = (width == a || width == b) ? 1 : 0;
    }
    return kept == 1;
}
} // namespace

MRLApplication::MRLApplication(int &argc, char **argv, const QString &name)
    : QPEApplication(argc, argv)
{
    theApplication = this;
    setObjectName(name);

    Config mrl(QStringLiteral("mrl"));
    mrl.setGroup(QStringLiteral("Style"));
    if (mrl.readNumEntry(QStringLiteral("id"), -1) != -1 && isLowResolution())
        loadStyleLibrary();

    auto *system = new QCopChannel(QByteArrayLiteral("QPE/System"), this);
    connect(system, &QCopChannel::received, this, &MRLApplication::mrlAppReceive);

    connect(this, &QPEApplication::clockChanged, this, &MRLApplication::updateDateTimeFormats);
    connect(this, &QPEApplication::dateFormatChanged, this, &MRLApplication::updateDateTimeFormats);
    connect(this, &QPEApplication::weekChanged, this, &MRLApplication::updateDateTimeFormats);
    connect(DateTimeSettings::instance(), &DateTimeSettings::changed, this,
        &MRLApplication::dateTimeSettingChanged);
}

MRLApplication::~MRLApplication()
{
    // The library's style code is about to be unmapped: no widget may still use it.
    QStyle *current = style();
    if (current && (current->objectName() == QLatin1String("xp") || current == libraryStyle))
        setStyle(QStyleFactory::create(QStringLiteral("Windows")));
    libraryStyle = nullptr;
    unloadStyleLibrary();
    theApplication = nullptr;
}

MRLApplication *MRLApplication::instance()
{
    return theApplication;
}

bool MRLApplication::ampm() const
{
    return DateTimeSettings::instance()->ampm();
}

bool MRLApplication::mondayFirst() const
{
    return DateTimeSettings::instance()->mondayFirst();
}

QChar MRLApplication::dateSeparator() const
{
    return DateTimeSettings::instance()->dateSeparator();
}

int MRLApplication::shortOrder() const
{
    return DateTimeSettings::instance()->shortOrder();
}

int MRLApplication::longOrder() const
{
    return DateTimeSettings::instance()->longOrder();
}

void MRLApplication::updateDateTimeFormats()
{
    DateTimeSettings::instance()->update();
}

bool MRLApplication::isHighResolution()
{
    static int kept = -1;
    return widthIsOneOf(kept, 640, 480);
}

bool MRLApplication::isLowResolution()
{
    static int kept = -1;
    return widthIsOneOf(kept, 240, 320);
}

void MRLApplication::showDialog(QDialog *dialog, bool maximize)
{
    if (dialog && maximize)
        dialog->showMaximized();
}

void MRLApplication::mrlAppReceive(const QByteArray &message, const QByteArray &data)
{
    Q_UNUSED(data);
    if (message == "applyMRLStyle()")
        loadStyleLibrary();
}

QString MRLApplication::styleLibraryPath()
{
    return qpeDir() + QStringLiteral("/lib/libmrlstyle.so");
}

void MRLApplication::loadStyleLibrary()
{
    if (!styleLibrary)
        styleLibrary = dlopen(QFile::encodeName(styleLibraryPath()).constData(), RTLD_LAZY);
    if (!styleLibrary) {
        if (const char *error = dlerror())
            qDebug("%s", error);
        return;
    }
    using Instantiate = QStyle *(*)();
    dlerror();
    auto instantiate = reinterpret_cast<Instantiate>(dlsym(styleLibrary, "mrl_style_instantiate"));
    if (const char *error = dlerror()) {
        qDebug("%s", error);
        return;
    }
    qDebug("Load mrlStyle library");
    if (QStyle *made = instantiate ? instantiate() : nullptr) {
        libraryStyle = made;
        setStyle(made);
    }
}

void MRLApplication::unloadStyleLibrary()
{
    if (!styleLibrary) {
        if (const char *error = dlerror())
            qDebug("%s", error);
        return;
    }
    if (dlclose(styleLibrary) == 0) {
        styleLibrary = nullptr;
        qDebug("Unload mrlStyle library");
    } else if (const char *error = dlerror()) {
        qDebug("%s", error);
    }
}
