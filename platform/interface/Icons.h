#ifndef _ICONS_H
#define _ICONS_H

#include <cstddef>

#include <NodeInfo.h>

class BBitmap;
class BNode;

// The icons of nodes: the ones stored in their attributes, and the running
// program's own.

namespace BPrivate {

extern const unsigned char kProgramIcon16[];
extern const size_t kProgramIcon16Size;
extern const unsigned char kProgramIcon32[];
extern const size_t kProgramIcon32Size;

// The icon in a node's "BEOS:L:STD_ICON" or "BEOS:M:STD_ICON" attribute.
status_t ReadIconAttribute(const BNode* node, BBitmap* icon, icon_size which);
// Whether node is the file of the running program.
bool IsRunningProgram(const BNode* node);
// The icon that the program was built with.
status_t GetProgramIcon(BBitmap* icon, icon_size which);
// Whether icon is a bitmap of the size asked for.
bool FitsIconSize(const BBitmap* icon, icon_size which);

}

#endif
