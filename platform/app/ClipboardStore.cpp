#include "ClipboardStore.h"

#include <unistd.h>

#include <algorithm>
#include <random>

#include <AppDefs.h>

#include "../link/DesktopClipboard.h"

namespace BPrivate {

namespace {

const char kSystemName[] = "system";
const char kTextType[] = "text/plain";
const char kMessageType[] = "application/x-vnd.Be-message";
// Marks the desktop's contents as this process's commit number so and so.
const char kOwnerType[] = "application/x-vnd.Vellum-clipboard-owner";

const std::string&
ProcessStamp()
{
	static const std::string stamp = std::to_string(getpid()) + "-"
		+ std::to_string(std::random_device()());
	return stamp;
}

// The text that other programs see of a message.
bool
TextOf(const BMessage& data, std::string* text)
{
	const void* bytes;
	ssize_t length;
	if (data.FindData(kTextType, B_MIME_TYPE, &bytes, &length) == B_OK) {
		text->assign(static_cast<const char*>(bytes), size_t(length));
		return true;
	}
	const char* string;
	if (data.FindString("text", &string) == B_OK) {
		*text = string;
		return true;
	}
	return false;
}

// Pointers from another process point nowhere here.
void
RemovePointers(BMessage* message)
{
	std::vector<std::string> names;
	const char* name;
	type_code type;
	for (int32 i = 0; message->GetInfo(B_POINTER_TYPE, i, &name, &type) == B_OK; i++)
		names.push_back(name);
	for (const std::string& each : names)
		message->RemoveName(each.c_str());
}

// The message of what another program put on the desktop's clipboard. Its
// flattened form is untrusted: when it does not unflatten, the text is used.
BMessage
Imported(const std::map<std::string, std::string>& formats)
{
	auto flat = formats.find(kMessageType);
	if (flat != formats.end()) {
		BMessage message;
		if (message.Unflatten(flat->second.data(), ssize_t(flat->second.size())) == B_OK) {
			RemovePointers(&message);
			return message;
		}
	}
	BMessage message(B_MIME_DATA);
	auto text = formats.find(kTextType);
	if (text != formats.end()) {
		message.AddData(kTextType, B_MIME_TYPE, text->second.data(),
			ssize_t(text->second.size()));
		message.AddString("text", text->second.c_str());
	}
	return message;
}

}	// namespace

ClipboardStore&
ClipboardStore::Default()
{
	static ClipboardStore store;
	return store;
}

ClipboardStore::Entry&
ClipboardStore::pvEntry(const std::string& name, std::vector<BMessenger>* toNotify)
{
	Entry& entry = fEntries[name];
	if (name == kSystemName && pvFollowDesktop(entry))
		*toNotify = entry.watchers;
	return entry;
}

bool
ClipboardStore::pvFollowDesktop(Entry& entry)
{
	Formats formats;
	if (DesktopClipboard::Read({kTextType, kMessageType, kOwnerType}, &formats) != B_OK
		|| formats == entry.desktop)
		return false;
	// Someone else changed the desktop's clipboard since we last looked.
	entry.desktop = formats;
	entry.data = Imported(formats);
	entry.count++;
	entry.source = BMessenger();
	return true;
}

void
ClipboardStore::pvExport(Entry& entry)
{
	Formats formats;
	std::string text;
	if (TextOf(entry.data, &text))
		formats[kTextType] = text;
	std::string& flat = formats[kMessageType];
	flat.resize(size_t(entry.data.FlattenedSize()));
	entry.data.Flatten(flat.data(), ssize_t(flat.size()));
	formats[kOwnerType] = ProcessStamp() + "-" + std::to_string(entry.count);
	// Only what the desktop took counts as seen: otherwise its old contents
	// still stand for what someone else put there.
	if (DesktopClipboard::Write(formats) == B_OK)
		entry.desktop = formats;
}

void
ClipboardStore::Get(const std::string& name, BMessage* data, uint32* count,
	BMessenger* source)
{
	std::vector<BMessenger> toNotify;
	{
		std::lock_guard<std::mutex> guard(fLock);
		Entry& entry = pvEntry(name, &toNotify);
		*data = entry.data;
		*count = entry.count;
		*source = entry.source;
	}
	pvNotify(toNotify);
}

uint32
ClipboardStore::Count(const std::string& name)
{
	BMessage data;
	uint32 count;
	BMessenger source;
	Get(name, &data, &count, &source);
	return count;
}

status_t
ClipboardStore::Put(const std::string& name, const BMessage& data, const BMessenger& source,
	uint32 localCount, bool failIfChanged, uint32* count)
{
	std::vector<BMessenger> toNotify;
	{
		std::lock_guard<std::mutex> guard(fLock);
		Entry& entry = pvEntry(name, &toNotify);
		if (failIfChanged && entry.count != localCount)
			return B_ERROR;
		entry.data = data;
		entry.count++;
		entry.source = source;
		if (name == kSystemName)
			pvExport(entry);
		*count = entry.count;
		toNotify = entry.watchers;
	}
	pvNotify(toNotify);
	return B_OK;
}

status_t
ClipboardStore::StartWatching(const std::string& name, const BMessenger& target)
{
	if (!target.IsValid())
		return B_BAD_VALUE;
	std::lock_guard<std::mutex> guard(fLock);
	std::vector<BMessenger>& watchers = fEntries[name].watchers;
	if (std::find(watchers.begin(), watchers.end(), target) == watchers.end())
		watchers.push_back(target);
	return B_OK;
}

status_t
ClipboardStore::StopWatching(const std::string& name, const BMessenger& target)
{
	std::lock_guard<std::mutex> guard(fLock);
	std::vector<BMessenger>& watchers = fEntries[name].watchers;
	auto found = std::find(watchers.begin(), watchers.end(), target);
	if (found == watchers.end())
		return B_BAD_VALUE;
	watchers.erase(found);
	return B_OK;
}

void
ClipboardStore::pvNotify(const std::vector<BMessenger>& watchers)
{
	for (const BMessenger& watcher : watchers)
		watcher.SendMessage(B_CLIPBOARD_CHANGED);
}

}
