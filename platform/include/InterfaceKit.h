#ifndef _INTERFACE_KIT_H
#define _INTERFACE_KIT_H

#include <Alert.h>
#include <Bitmap.h>
#include <Box.h>
#include <Button.h>
#include <Control.h>
#include <Font.h>
#include <GraphicsDefs.h>
#include <InterfaceDefs.h>
#include <Point.h>
#include <RadioButton.h>
#include <Rect.h>
#include <Region.h>
#include <Screen.h>
#include <Shelf.h>
#include <StringView.h>
#include <View.h>
#include <Window.h>

#endif
