#ifndef ASSETS_RESOURCE_H_
#define ASSETS_RESOURCE_H_

// The numbers of the icons in the executable. Also read by the resource compiler, which
// takes nothing but preprocessor definitions.

// The system shows the icon with the lowest number as the program's own.
#define IDI_LOGO 1
#define IDI_NOTE 2
#define IDI_ALARMON 3

// Tool bar of the note editor: 24, 30, 36, 48 and 72 pixels.
#define IDI_TB_SAVE 10
#define IDI_TB_KILL 11
#define IDI_TB_PRINT 12
#define IDI_TB_HIDE 13
#define IDI_TB_HELP 14
#define IDI_TB_ABOUT 15

// Rows of the list views: 16, 20, 24, 32 and 48 pixels.
#define IDI_ALARMSET 20
#define IDI_ALARMNOTSET 21
#define IDI_RUN 22

// Decoration of the tips window: 96, 144, 192 and 256 pixels.
#define IDI_TIP 23

// Marks a note whose alarm sounds: 24, 30, 36, 48 and 72 pixels.
#define IDI_BELL 24

#endif  // ASSETS_RESOURCE_H_
