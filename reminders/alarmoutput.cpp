#include "reminders/alarmoutput.h"

#include "platform/config.h"
#include "platform/resource.h"
#include "platform/sound.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>

#include <fcntl.h>
#include <sys/ioctl.h>

namespace
{
const char buzzerNode[] = "/dev/sharp_buz";
const char ledNode[] = "/dev/sharp_led";

// The driver's requests; their records are the driver's own.
const unsigned long buzzerSetup = 0x5684;
const unsigned long buzzerMode = 0x5681;
const unsigned long buzzerSound = 0x5680;
const unsigned long ledSet = 0x5681;

// The buzzer sounds three pulses, a second apart.
const int buzzerPulses = 3;
const int pulseMilliseconds = 1000;

// The value the LED driver takes for the first pattern; the others follow in order.
const int firstPattern = 3;

void playScheduleSound()
{
    Config config(QStringLiteral("sharpqpe"));
    config.setGroup(QStringLiteral("Sound"));
    const QString file
        = config.readEntry(QStringLiteral("ScheduleAlarm"), QStringLiteral("alarma300"));
    Sound::play(Resource::findSound(QFileInfo(file).baseName()));
}

// Later pulses come from the event loop, so the window goes on while the buzzer sounds.
void pulseBuzzer(int fd, int left)
{
    ::ioctl(fd, buzzerSound, 4);
    if (left > 1)
        QTimer::singleShot(pulseMilliseconds, QCoreApplication::instance(),
            [fd, left] { pulseBuzzer(fd, left - 1); });
}
} // namespace

// The descriptors opened here stay open: the driver expects its node to be held.
void playAlarm()
{
    Sound::soundAlarm();
    playScheduleSound();

    const int fd = ::open(buzzerNode, O_WRONLY);
    if (fd < 0)
        return;
    int record[3] = { 4, 100, 0 };
    ::ioctl(fd, buzzerSetup, record);
    ::ioctl(fd, buzzerMode, record);
    pulseBuzzer(fd, buzzerPulses);
}

void setLed(bool on, int type)
{
    const int ledFd = ::open(ledNode, O_WRONLY);
    if (ledFd < 0)
        return;
    // The buzzer's node only tells which kind of device drives the LED.
    const int buzzerFd = ::open(buzzerNode, O_WRONLY);
    int record[2];
    if (buzzerFd < 0) {
        record[0] = 2;
        record[1] = on ? 1 : 0;
    } else {
        record[0] = 13;
        record[1] = on ? type + firstPattern : 0;
    }
    ::ioctl(ledFd, ledSet, record);
}
