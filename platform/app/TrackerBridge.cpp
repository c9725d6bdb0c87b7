#include "TrackerBridge.h"

#include <cstring>
#include <mutex>
#include <string>

#include <AppDefs.h>
#include <Entry.h>
#include <Path.h>

#include "../link/FileManagerBridge.h"

namespace BPrivate {

namespace {

const char* const kDefaultFolderOpener = "xdg-open";

std::mutex sOpenerLock;
// The running bridge, started on first use.
std::mutex sBridgeLock;
TrackerBridge* sBridge = nullptr;
BMessenger sBridgeMessenger;
std::string sFolderOpener = kDefaultFolderOpener;

status_t
OpenFolder(const char* folder)
{
	std::string opener;
	{
		std::lock_guard<std::mutex> guard(sOpenerLock);
		opener = sFolderOpener;
	}
	return FileManagerBridge::OpenFolder(opener.c_str(), folder);
}

}	// namespace

TrackerBridge::TrackerBridge()
	: BLooper("Tracker")
{
}

void
TrackerBridge::SetFolderOpener(const char* command)
{
	std::lock_guard<std::mutex> guard(sOpenerLock);
	sFolderOpener = command != nullptr && command[0] != '\0' ? command : kDefaultFolderOpener;
}

const char*
TrackerBridge::Signature()
{
	return "application/x-vnd.Be-TRAK";
}

BMessenger
TrackerBridge::Messenger()
{
	std::lock_guard<std::mutex> guard(sBridgeLock);
	if (sBridge == nullptr) {
		sBridge = new TrackerBridge;
		sBridgeMessenger = BMessenger(nullptr, sBridge);
		sBridge->Run();
	}
	return sBridgeMessenger;
}

void
TrackerBridge::Stop()
{
	std::lock_guard<std::mutex> guard(sBridgeLock);
	if (sBridge == nullptr)
		return;
	if (sBridge->Lock())
		sBridge->Quit();
	sBridge = nullptr;
	sBridgeMessenger = BMessenger();
}

BHandler*
TrackerBridge::ResolveSpecifier(BMessage* message, int32 index, BMessage* specifier,
	int32 what, const char* property)
{
	// Selection of Poses of Window: the bridge answers for the whole stack,
	// which is resolved from its outermost specifier, the window.
	if (message->what == B_CREATE_PROPERTY && strcmp(property, "Window") == 0)
		return this;
	return BLooper::ResolveSpecifier(message, index, specifier, what, property);
}

void
TrackerBridge::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case B_REFS_RECEIVED:
			pvReply(message, pvAcceptFolders(message));
			break;
		case B_CREATE_PROPERTY:
			pvReply(message, pvShowSelection(message));
			break;
		default:
			BLooper::MessageReceived(message);
			break;
	}
}

status_t
TrackerBridge::pvAcceptFolders(BMessage* message)
{
	entry_ref ref;
	if (message->FindRef("refs", &ref) != B_OK)
		return B_BAD_VALUE;
	for (int32 i = 0; message->FindRef("refs", i, &ref) == B_OK; i++) {
		BEntry entry(&ref, true);
		if (!entry.IsDirectory())
			return B_BAD_TYPE;
	}
	return B_OK;
}

status_t
TrackerBridge::pvShowSelection(BMessage* message)
{
	entry_ref ref;
	if (message->FindRef("data", &ref) != B_OK)
		return B_BAD_VALUE;
	BEntry entry(&ref);
	BPath path;
	status_t status = entry.GetPath(&path);
	if (status != B_OK)
		return status;
	if (FileManagerBridge::ShowItem(path.Path()) == B_OK)
		return B_OK;
	BPath folder;
	status = path.GetParent(&folder);
	return status == B_OK ? OpenFolder(folder.Path()) : status;
}

void
TrackerBridge::pvReply(BMessage* message, status_t status)
{
	BMessage reply(B_REPLY);
	reply.AddInt32("error", status);
	message->SendReply(&reply);
}

}
