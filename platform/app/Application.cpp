#include <Application.h>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <fstream>
#include <iterator>
#include <strings.h>

#include <Clipboard.h>

#include "../kernel/Threads.h"
#include "../link/DisplayLoop.h"
#include "../link/DisplayServer.h"
#include "../link/LaunchService.h"
#include "LooperRegistry.h"
#include "MessagePrivate.h"
#include "PulseTimer.h"
#include "TrackerBridge.h"
#include "WindowList.h"

BApplication* be_app = nullptr;
BMessenger be_app_messenger;

namespace {

const char kSignaturePrefix[] = "application/";
// A desktop launch hands its documents over behind this option.
const char kRefsOption[] = "--refs";
// Closing the windows that are left waits this long for a busy one each time,
// and gives up on windows that stay busy past the whole timeout.
const bigtime_t kCloseLockTimeout = 50000;
const bigtime_t kCloseWindowsTimeout = 10000000;

// The running executable as an entry that the storage kit can find again.
status_t
ExecutableRef(entry_ref* ref)
{
	char path[PATH_MAX];
	ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
	if (length <= 0)
		return B_ENTRY_NOT_FOUND;
	path[length] = '\0';
	return get_ref_for_path(path, ref);
}

std::string
CurrentFolder()
{
	char cwd[PATH_MAX];
	return getcwd(cwd, sizeof(cwd)) != nullptr ? cwd : "";
}

// What a launch with arguments asks of the application: the documents of a
// desktop launch ("--refs" and the paths of entries, read from cwd) as
// B_REFS_RECEIVED, plain arguments as B_ARGV_RECEIVED.
BMessage
LaunchMessage(const std::vector<std::string>& arguments, const std::string& cwd)
{
	if (arguments.size() > 1 && arguments[1] == kRefsOption) {
		BMessage message(B_REFS_RECEIVED);
		for (size_t i = 2; i < arguments.size(); i++) {
			std::string path = arguments[i];
			if (!path.empty() && path[0] != '/' && !cwd.empty())
				path = cwd + "/" + path;
			entry_ref ref;
			if (get_ref_for_path(path.c_str(), &ref) == B_OK)
				message.AddRef("refs", &ref);
		}
		return message;
	}
	BMessage message(B_ARGV_RECEIVED);
	message.AddInt32("argc", static_cast<int32>(arguments.size()));
	for (const std::string& argument : arguments)
		message.AddString("argv", argument.c_str());
	if (!cwd.empty())
		message.AddString("cwd", cwd.c_str());
	return message;
}

}	// namespace

BApplication::BApplication(const char* signature)
	: BLooper("application")
{
	pvInit(signature);
}

BApplication::BApplication(const char* signature, status_t* error)
	: BLooper("application")
{
	pvInit(signature);
	if (error != nullptr)
		*error = fInitStatus;
}

BApplication::~BApplication()
{
	// No window outlives the application, nor the bridge to the file manager.
	pvCloseWindows();
	BPrivate::TrackerBridge::Stop();
	fPulse.reset();
	BPrivate::JoinFinishedThreads();
	if (be_app == this) {
		delete be_clipboard;
		be_clipboard = nullptr;
		be_app = nullptr;
		be_app_messenger = BMessenger();
	}
}

void
BApplication::pvInit(const char* signature)
{
	fDeleteOnQuit = false;
	if (signature == nullptr || strncasecmp(signature, kSignaturePrefix,
			sizeof(kSignaturePrefix) - 1) != 0
		|| strlen(signature) >= B_MIME_TYPE_LENGTH) {
		fInitStatus = B_BAD_VALUE;
		return;
	}
	if (be_app != nullptr) {
		fInitStatus = B_ALREADY_RUNNING;
		return;
	}
	fSignature = signature;
	// The display server shows the windows, unless another display loop was set.
	if (BPrivate::GetDisplayLoop() == nullptr)
		BPrivate::SetDisplayLoop(&BPrivate::DisplayServer::Default().Loop());
	be_app = this;
	be_app_messenger = BMessenger(this);
	be_clipboard = new BClipboard("system");
	fPulse = std::make_unique<BPrivate::PulseTimer>(be_app_messenger);
	pvReadCommandLine();
}

void
BApplication::pvReadCommandLine()
{
	std::ifstream file("/proc/self/cmdline", std::ios::binary);
	std::string line((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
	fArguments.clear();
	size_t start = 0;
	while (start < line.size()) {
		size_t end = line.find('\0', start);
		if (end == std::string::npos)
			end = line.size();
		fArguments.push_back(line.substr(start, end - start));
		start = end + 1;
	}
}

bool
BApplication::HandOverLaunch(const char* signature, int32 argc, const char* const* argv)
{
	auto toApplication = [](const BPrivate::LaunchRequest& request) {
		BMessage message = LaunchMessage(request.arguments, request.cwd);
		if (!message.IsEmpty() || message.what == B_ARGV_RECEIVED)
			be_app_messenger.SendMessage(&message);
	};
	if (BPrivate::ClaimLaunchName(signature, toApplication) != B_NAME_IN_USE)
		return false;
	// The running application reads relative paths in its own folder: the
	// ones that name entries here travel as absolute paths.
	BPrivate::LaunchRequest request;
	request.cwd = CurrentFolder();
	for (int32 i = 0; i < argc; i++) {
		std::string argument = argv[i];
		if (!argument.empty() && argument[0] != '/' && access(argument.c_str(), F_OK) == 0)
			argument = request.cwd + "/" + argument;
		request.arguments.push_back(argument);
	}
	return BPrivate::HandOverLaunch(signature, request) == B_OK;
}

void
BApplication::SetLaunchArguments(int32 argc, const char* const* argv)
{
	fArguments.clear();
	for (int32 i = 0; i < argc && argv != nullptr; i++)
		fArguments.push_back(argv[i] != nullptr ? argv[i] : "");
}

// #pragma mark - running

thread_id
BApplication::Run()
{
	if (fInitStatus != B_OK)
		return fInitStatus;
	if (fArguments.size() > 1) {
		BMessage* launch = new BMessage(LaunchMessage(fArguments, CurrentFolder()));
		BPrivate::MessageAccess::SetTarget(launch, pvToken());
		if (launch->IsEmpty())
			delete launch;
		else
			pvEnqueueFirst(launch);
	}
	PostMessage(B_READY_TO_RUN);

	thread_id thread = BLooper::Run();
	if (thread < 0)
		return thread;
	if (BPrivate::DisplayLoop* display = BPrivate::GetDisplayLoop())
		display->Run();
	wait_for_thread(thread, nullptr);
	return thread;
}

void
BApplication::pvLoopEnded()
{
	if (fPulse != nullptr)
		fPulse->SetRate(0);
	BLooper::pvLoopEnded();
	pvCloseWindows();
	if (BPrivate::DisplayLoop* display = BPrivate::GetDisplayLoop())
		display->Quit();
}

void
BApplication::Quit()
{
	// The application object belongs to main: the loop ends, nothing is deleted.
	// From another thread (or before Run) the quit waits its turn in the queue.
	if (fRunCalled && find_thread(nullptr) == Thread())
		fTerminating = true;
	else
		PostMessage(_QUIT_);
}

bool
BApplication::QuitRequested()
{
	return pvQuitWindows();
}

// Quits every window that is left, newest first, and waits for its thread. A
// window busy in a modal alert can be locked once the alert above it is gone.
void
BApplication::pvCloseWindows()
{
	bigtime_t deadline = system_time() + kCloseWindowsTimeout;
	while (BPrivate::CountWindows() > 0 && system_time() < deadline) {
		for (int32 i = BPrivate::CountWindows() - 1; i >= 0; i--) {
			BLooper* window = BPrivate::WindowLooperAt(i);
			if (window != nullptr && window->LockWithTimeout(kCloseLockTimeout) == B_OK) {
				window->Quit();
				break;
			}
		}
	}
}

bool
BApplication::pvQuitWindows()
{
	// Ask each window in turn; the first that refuses keeps the application running.
	for (int32 i = BPrivate::CountWindows() - 1; i >= 0; i--) {
		BLooper* window = BPrivate::WindowLooperAt(i);
		if (window == nullptr || !window->Lock())
			continue;
		if (!window->QuitRequested()) {
			window->Unlock();
			return false;
		}
		window->Quit();
	}
	return true;
}

// #pragma mark - dispatching

void
BApplication::DispatchMessage(BMessage* message, BHandler* handler)
{
	if (handler != this) {
		BLooper::DispatchMessage(message, handler);
		return;
	}
	switch (message->what) {
		case B_ARGV_RECEIVED:
			pvDispatchArgv(message);
			break;
		case B_REFS_RECEIVED:
			RefsReceived(message);
			break;
		case B_READY_TO_RUN:
			if (fLaunching) {
				fLaunching = false;
				ReadyToRun();
			}
			break;
		case B_ABOUT_REQUESTED:
			AboutRequested();
			break;
		case B_PULSE:
			fPulse->PulseHandled();
			Pulse();
			break;
		case B_APP_ACTIVATED: {
			bool active;
			if (message->FindBool("active", &active) == B_OK)
				AppActivated(active);
			break;
		}
		default:
			BLooper::DispatchMessage(message, handler);
			break;
	}
}

void
BApplication::pvDispatchArgv(BMessage* message)
{
	std::vector<std::string> arguments;
	const char* argument;
	for (int32 i = 0; message->FindString("argv", i, &argument) == B_OK; i++)
		arguments.push_back(argument);
	std::vector<char*> argv;
	for (std::string& each : arguments)
		argv.push_back(each.data());
	argv.push_back(nullptr);
	ArgvReceived(static_cast<int32>(arguments.size()), argv.data());
}

void
BApplication::MessageReceived(BMessage* message)
{
	BLooper::MessageReceived(message);
}

// The hooks below are for applications to implement; by default they do nothing.

void
BApplication::Pulse()
{
}

void
BApplication::ReadyToRun()
{
}

void
BApplication::ArgvReceived(int32, char**)
{
}

void
BApplication::AppActivated(bool)
{
}

void
BApplication::RefsReceived(BMessage*)
{
}

void
BApplication::AboutRequested()
{
}

// #pragma mark - information

void
BApplication::SetPulseRate(bigtime_t rate)
{
	if (fPulse != nullptr)
		fPulse->SetRate(rate);
}

status_t
BApplication::GetAppInfo(app_info* info) const
{
	if (info == nullptr)
		return B_BAD_VALUE;
	if (fInitStatus != B_OK)
		return fInitStatus;
	info->thread = Thread();
	info->team = current_team();
	info->port = pvPort();
	info->flags = B_MULTIPLE_LAUNCH;
	strncpy(info->signature, fSignature.c_str(), B_MIME_TYPE_LENGTH - 1);
	info->signature[B_MIME_TYPE_LENGTH - 1] = '\0';
	return ExecutableRef(&info->ref);
}

int32
BApplication::CountWindows() const
{
	return BPrivate::CountWindows();
}

BWindow*
BApplication::WindowAt(int32 index) const
{
	return BPrivate::WindowAt(index);
}

int32
BApplication::CountLoopers() const
{
	return static_cast<int32>(BPrivate::LooperRegistry::Default().Loopers().size());
}

BLooper*
BApplication::LooperAt(int32 index) const
{
	std::vector<BLooper*> loopers = BPrivate::LooperRegistry::Default().Loopers();
	if (index < 0 || static_cast<size_t>(index) >= loopers.size())
		return nullptr;
	return loopers[index];
}
