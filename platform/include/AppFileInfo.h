#ifndef _APP_FILE_INFO_H
#define _APP_FILE_INFO_H

#include <NodeInfo.h>

class BFile;

enum version_kind {
	B_APP_VERSION_KIND,
	B_SYSTEM_VERSION_KIND
};

enum {
	B_DEVELOPMENT_VERSION = 0,
	B_ALPHA_VERSION,
	B_BETA_VERSION,
	B_GAMMA_VERSION,
	B_GOLDEN_MASTER_VERSION,
	B_FINAL_VERSION
};

struct version_info {
	uint32 major;
	uint32 middle;
	uint32 minor;
	uint32 variety;
	uint32 internal;
	char short_info[64];
	char long_info[256];
};

// What an application file says about itself: its icon, version and signature,
// from its attributes. The running program's own file, which carries no
// attributes on Linux, has the icon and version that the program was built with.
class BAppFileInfo : public BNodeInfo {
public:
	BAppFileInfo();
	BAppFileInfo(BFile* file);
	virtual ~BAppFileInfo();

	status_t SetTo(BFile* file);

	status_t GetIcon(BBitmap* icon, icon_size which) const;
	status_t GetVersionInfo(version_info* info, version_kind kind) const;
	status_t GetSignature(char* signature) const;

private:
	BFile* fFile = nullptr;
};

#endif
