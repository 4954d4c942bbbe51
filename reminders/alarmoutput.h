#ifndef ALARMOUTPUT_H
#define ALARMOUTPUT_H

// The signals of an alarm on the device: the sound, with the buzzer where there is one,
// and the LED. Where the device nodes are missing (a desktop) the buzzer and the LED do
// nothing; the desktop's sound still plays.

// The sound of one alarm. It plays on while the caller goes on: nothing here waits.
void playAlarm();
// Turns the LED on with the pattern type (an index of the reminder's patterns), or off.
void setLed(bool on, int type);

#endif
