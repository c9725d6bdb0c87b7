#include "PanelColors.h"

const rgb_color WhiteColor = {255, 255, 255, 255};
const rgb_color NodeColor = {255, 255, 232, 255};
