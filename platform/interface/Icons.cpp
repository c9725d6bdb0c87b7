#include "Icons.h"

#include <sys/stat.h>

#include <vector>

#include <Bitmap.h>
#include <Node.h>

#include "../link/IconTheme.h"

namespace BPrivate {

namespace {

const char kLargeIconAttribute[] = "BEOS:L:STD_ICON";
const char kMiniIconAttribute[] = "BEOS:M:STD_ICON";
const type_code kLargeIconType = 'ICON';
const type_code kMiniIconType = 'MICN';

}	// namespace

bool
FitsIconSize(const BBitmap* icon, icon_size which)
{
	if (icon == nullptr || icon->InitCheck() != B_OK)
		return false;
	BRect bounds = icon->Bounds();
	return bounds.IntegerWidth() + 1 == int32(which)
		&& bounds.IntegerHeight() + 1 == int32(which);
}

status_t
ReadIconAttribute(const BNode* node, BBitmap* icon, icon_size which)
{
	// One byte per pixel of the system colour map.
	std::vector<uint8> data(size_t(which) * size_t(which));
	bool large = which == B_LARGE_ICON;
	ssize_t length = node->ReadAttr(large ? kLargeIconAttribute : kMiniIconAttribute,
		large ? kLargeIconType : kMiniIconType, 0, data.data(), data.size());
	if (length != ssize_t(data.size()))
		return length < 0 ? status_t(length) : B_BAD_DATA;
	icon->SetBits(data.data(), int32(length), 0, B_CMAP8);
	return B_OK;
}

bool
IsRunningProgram(const BNode* node)
{
	struct stat program, st;
	return stat("/proc/self/exe", &program) == 0 && node->GetStat(&st) == B_OK
		&& program.st_dev == st.st_dev && program.st_ino == st.st_ino;
}

status_t
GetProgramIcon(BBitmap* icon, icon_size which)
{
	bool large = which == B_LARGE_ICON;
	std::vector<uint8> pixels;
	status_t status = DecodeIcon(large ? kProgramIcon32 : kProgramIcon16,
		large ? kProgramIcon32Size : kProgramIcon16Size, int32(which), &pixels);
	if (status == B_OK)
		icon->SetBits(pixels.data(), int32(pixels.size()), 0, B_RGBA32);
	return status;
}

}
