#include "ListColors.h"

const rgb_color GreenColor = {0, 255, 0, 255};
const rgb_color BlueColor = {0, 0, 229, 255};
