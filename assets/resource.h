#ifndef ASSETS_RESOURCE_H_
#define ASSETS_RESOURCE_H_

// The IDs of the icons in the executable. The resource compiler also reads this file, so it may
// contain only preprocessor directives.

// Windows shows the icon with the lowest ID as the program's own.
#define IDI_LOGO 1
#define IDI_NOTE 2
#define IDI_ALARMON 3

#endif  // ASSETS_RESOURCE_H_
