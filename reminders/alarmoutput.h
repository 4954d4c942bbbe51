#ifndef ALARMOUTPUT_H
#define ALARMOUTPUT_H

// The signals of an alarm on the device: the sound, with the buzzer where there is one,
// and the LED. Where the device nodes are missing (a desktop) the buzzer becomes a wait of
// the same length and the LED does nothing, so callers see the same sequence and timing.

// The sound of one alarm; blocks for about two seconds.
void playAlarm();
// Turns the LED on with the pattern type (an index of the reminder's patterns), or off.
void setLed(bool on, int type);

#endif
