#ifndef SOUND_H
#define SOUND_H

#include <QString>

// Sounds through the desktop: a WAV file goes to the desktop's player (paplay, or aplay)
// in its own process, one sound at a time, so the program never waits for it.
class Sound
{
public:
    // The platform's alarm: the sound "alarm", or the display's bell with no player or file.
    static void soundAlarm();
    // Plays the file now or after the sound playing; false when there is no such file or
    // no player, or too many sounds wait.
    static bool play(const QString &file);
    // The player found on the PATH, or empty.
    static QString player();
};

#endif
