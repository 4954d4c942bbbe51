#ifndef SOUND_H
#define SOUND_H

#include <QString>

// Sounds through the desktop: a WAV file goes to the desktop's player (paplay, or aplay)
// in its own process, so the program never waits for it.
class Sound
{
public:
    // The platform's alarm: the sound "alarm", or the display's bell with no player or file.
    static void soundAlarm();
    // Starts playing the file; false when there is no such file or no player.
    static bool play(const QString &file);
    // The player found on the PATH, or empty.
    static QString player();
};

#endif
