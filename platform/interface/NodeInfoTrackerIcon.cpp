#include <NodeInfo.h>

#include <algorithm>
#include <cstring>
#include <sys/stat.h>
#include <vector>

#include <Bitmap.h>
#include <StorageDefs.h>
#include <Node.h>

#include "../link/IconTheme.h"
#include "Icons.h"

// The icon that the file manager shows for a node: its own icon attribute,
// the program's icon for the running program's file, else the desktop theme's
// icon for its type, else a generic file, folder or link icon.

namespace {

enum generic_icon {
	kGenericFile,
	kGenericFolder,
	kGenericLink
};

// B_RGBA32 pixels of a square icon, painted with filled boxes in fractions of
// its edge.
class IconCanvas {
public:
	explicit IconCanvas(int32 size)
		: fSize(size), fPixels(size_t(size) * size * 4, 0)
	{
	}

	void Fill(float left, float top, float right, float bottom, rgb_color color)
	{
		int32 x0 = int32(left * fSize), x1 = int32(right * fSize) - 1;
		int32 y0 = int32(top * fSize), y1 = int32(bottom * fSize) - 1;
		for (int32 y = std::max(0, y0); y <= std::min(fSize - 1, y1); y++) {
			for (int32 x = std::max(0, x0); x <= std::min(fSize - 1, x1); x++) {
				uint8* pixel = &fPixels[(size_t(y) * fSize + x) * 4];
				pixel[0] = color.blue;
				pixel[1] = color.green;
				pixel[2] = color.red;
				pixel[3] = color.alpha;
			}
		}
	}

	// A filled box with a one-pixel outline.
	void Box(float left, float top, float right, float bottom, rgb_color fill,
		rgb_color outline)
	{
		Fill(left, top, right, bottom, outline);
		float pixel = 1.0f / fSize;
		Fill(left + pixel, top + pixel, right - pixel, bottom - pixel, fill);
	}

	const std::vector<uint8>& Pixels() const { return fPixels; }

private:
	int32 fSize;
	std::vector<uint8> fPixels;
};

std::vector<uint8>
GenericIcon(generic_icon kind, int32 size)
{
	const rgb_color outline = make_color(64, 64, 64);
	IconCanvas canvas(size);
	if (kind == kGenericFolder) {
		const rgb_color manila = make_color(255, 203, 0);
		canvas.Box(0.06f, 0.19f, 0.47f, 0.34f, manila, outline);
		canvas.Box(0.06f, 0.28f, 0.94f, 0.84f, manila, outline);
		return canvas.Pixels();
	}
	const rgb_color paper = make_color(255, 255, 255);
	canvas.Box(0.19f, 0.06f, 0.81f, 0.94f, paper, outline);
	// A folded corner at the top right.
	canvas.Box(0.59f, 0.06f, 0.81f, 0.28f, make_color(216, 216, 216), outline);
	for (float line = 0.38f; line < 0.85f; line += 0.12f)
		canvas.Fill(0.28f, line, 0.72f, line + 1.0f / size, make_color(152, 152, 152));
	if (kind == kGenericLink) {
		// A curved arrow in the bottom left corner says "points elsewhere".
		canvas.Box(0.03f, 0.56f, 0.44f, 0.97f, paper, outline);
		canvas.Fill(0.12f, 0.66f, 0.34f, 0.72f, outline);
		canvas.Fill(0.28f, 0.66f, 0.34f, 0.88f, outline);
	}
	return canvas.Pixels();
}

// The desktop's name for the types that BeOS names its own way.
const char*
ThemeType(const char* type)
{
	if (strcmp(type, "application/x-vnd.Be-directory") == 0)
		return "inode/directory";
	if (strcmp(type, "application/x-vnd.Be-symlink") == 0)
		return "inode/symlink";
	return type;
}

}	// namespace

status_t
BNodeInfo::GetTrackerIcon(BBitmap* icon, icon_size which) const
{
	if (!BPrivate::FitsIconSize(icon, which))
		return B_BAD_VALUE;
	if (fStatus != B_OK)
		return fStatus;
	if (BPrivate::ReadIconAttribute(fNode, icon, which) == B_OK)
		return B_OK;
	if (BPrivate::IsRunningProgram(fNode) && BPrivate::GetProgramIcon(icon, which) == B_OK)
		return B_OK;

	char type[B_MIME_TYPE_LENGTH];
	std::vector<uint8> pixels;
	if (GetType(type) == B_OK
		&& BPrivate::ThemeIcon(ThemeType(type), int32(which), &pixels) == B_OK) {
		icon->SetBits(pixels.data(), int32(pixels.size()), 0, B_RGBA32);
		return B_OK;
	}

	struct stat st;
	status_t status = fNode->GetStat(&st);
	if (status != B_OK)
		return status;
	generic_icon kind = S_ISDIR(st.st_mode) ? kGenericFolder
		: S_ISLNK(st.st_mode) ? kGenericLink : kGenericFile;
	pixels = GenericIcon(kind, int32(which));
	icon->SetBits(pixels.data(), int32(pixels.size()), 0, B_RGBA32);
	return B_OK;
}
