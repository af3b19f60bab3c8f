#ifndef ASSETS_RESOURCE_H_
#define ASSETS_RESOURCE_H_

// The numbers of the icons in the executable. Also read by the resource compiler, which
// takes nothing but preprocessor definitions.

// The system shows the icon with the lowest number as the program's own.
#define IDI_LOGO 1
#define IDI_NOTE 2
#define IDI_ALARMON 3

#endif  // ASSETS_RESOURCE_H_
