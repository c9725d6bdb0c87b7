#include "DisplayServer.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <map>
#include <mutex>
#include <vector>

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>

#include "FrameWindow.h"

namespace BPrivate {

struct DisplayServer::Data {
	std::mutex lock;
	std::condition_variable started;
	QGuiApplication* application = nullptr;
	// Requests in the order they were posted; the pump runs them in the
	// server's thread. Handing them over under this lock (rather than through
	// Qt's own queue) keeps the hand-over visible to thread checkers.
	std::deque<std::function<void()>> queue;
	RequestPump* pump = nullptr;
	bool pumpScheduled = false;
	std::atomic<int32> nextId{1};
	std::atomic<bool> quitPending{false};
	std::atomic<bool> running{false};
	std::atomic<int32> beeps{0};
	// Something needs Qt: the display loop starts it.
	bool startRequested = false;
	std::atomic<uint32> modifiers{0};
	// Input has told the modifiers since the start.
	std::atomic<bool> modifiersNoted{false};
	BRect screenFrame;
	float scaleFactor = 1.0f;
	// Touched only in the server's thread.
	std::map<int32, std::unique_ptr<FrameWindow>> windows;
};

namespace {

bool
IsMainThread()
{
	return syscall(SYS_gettid) == getpid();
}

// Set in the thread that runs the display loop.
thread_local bool tIsDisplayThread = false;

// The decoration of a window: its look and the buttons its flags allow.
Qt::WindowFlags
QtFlags(const WindowSettings& settings)
{
	Qt::WindowFlags flags = settings.modal ? Qt::Dialog : settings.floating ? Qt::Tool
		: Qt::Window;
	if (!settings.bordered)
		return flags | Qt::FramelessWindowHint;
	flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
	if (settings.closable)
		flags |= Qt::WindowCloseButtonHint;
	if (settings.minimizable && !settings.modal)
		flags |= Qt::WindowMinimizeButtonHint;
	if (settings.zoomable && !settings.modal)
		flags |= Qt::WindowMaximizeButtonHint;
	return flags;
}

}	// namespace

// Runs the requests posted to the server, in its thread.
class RequestPump : public QObject {
public:
	bool event(QEvent* event) override
	{
		// The event was made by the posting thread under the server's lock and
		// came through Qt's queue, whose locking thread checkers cannot see;
		// taking the lock orders this thread after the posting one for them.
		{
			std::lock_guard<std::mutex> guard(DisplayServer::Default().fData->lock);
		}
		if (event->type() != QEvent::User)
			return QObject::event(event);
		DisplayServer::Default().pvRunRequests();
		return true;
	}
};

namespace {

// Runs the display server as the display loop of BApplication::Run().
class ServerLoop : public DisplayLoop {
public:
	void Run() override { DisplayServer::Default().Run(); }
	void Quit() override { DisplayServer::Default().Quit(); }
};

}	// namespace

#if defined(__SANITIZE_THREAD__)
// Qt and the libraries under it are not built for the thread checker: what
// they hand between their own threads (D-Bus's connection thread, glib's
// wake-ups, objects they free there) looks unordered to it. Only our own code
// is checked.
extern "C" const char*
__tsan_default_options()
{
	return "ignore_noninstrumented_modules=1";
}

extern "C" const char*
__tsan_default_suppressions()
{
	return "deadlock:libdbus-1.so\n";
}
#endif

DisplayServer::DisplayServer()
	: fData(std::make_unique<Data>())
{
}

DisplayServer&
DisplayServer::Default()
{
	// Never destroyed: Qt's objects outlive every window thread.
	static DisplayServer* server = new DisplayServer;
	return *server;
}

void
DisplayServer::EnsureStarted()
{
	std::unique_lock<std::mutex> guard(fData->lock);
	if (fData->application != nullptr)
		return;
	if (!IsMainThread() && !tIsDisplayThread) {
		fData->startRequested = true;
		fData->started.notify_all();
		fData->started.wait(guard, [this] { return fData->application != nullptr; });
		return;
	}
	// Without a display, everything runs the same on Qt's offscreen platform.
	if (getenv("QT_QPA_PLATFORM") == nullptr && getenv("DISPLAY") == nullptr
		&& getenv("WAYLAND_DISPLAY") == nullptr)
		setenv("QT_QPA_PLATFORM", "offscreen", 1);
	static int argc = 1;
	static char name[] = "vellum";
	static char* argv[] = {name, nullptr};
	fData->application = new QGuiApplication(argc, argv);
	QGuiApplication::setQuitOnLastWindowClosed(false);
	QScreen* screen = QGuiApplication::primaryScreen();
	QRect geometry = screen != nullptr ? screen->geometry() : QRect(0, 0, 1024, 768);
	fData->screenFrame.Set(geometry.left(), geometry.top(), geometry.right(),
		geometry.bottom());
	fData->scaleFactor = screen != nullptr ? float(screen->devicePixelRatio()) : 1.0f;
	// The keys held while the program starts count until input tells otherwise.
	if (!fData->modifiersNoted)
		fData->modifiers = BeModifiers(QGuiApplication::queryKeyboardModifiers());
	fData->pump = new RequestPump;
	guard.unlock();
	fData->started.notify_all();
	pvRunRequests();
}

void
DisplayServer::pvRunRequests()
{
	for (;;) {
		std::deque<std::function<void()>> batch;
		{
			std::lock_guard<std::mutex> guard(fData->lock);
			if (fData->queue.empty()) {
				fData->pumpScheduled = false;
				return;
			}
			batch.swap(fData->queue);
		}
		for (auto& request : batch)
			request();
	}
}

void
DisplayServer::pvEnqueue(std::function<void()> request)
{
	fData->queue.push_back(std::move(request));
	if (fData->application == nullptr) {
		fData->startRequested = true;
		fData->started.notify_all();
	} else if (!fData->pumpScheduled) {
		fData->pumpScheduled = true;
		QCoreApplication::postEvent(fData->pump, new QEvent(QEvent::User));
	}
}

void
DisplayServer::Post(std::function<void()> request)
{
	std::lock_guard<std::mutex> guard(fData->lock);
	pvEnqueue(std::move(request));
}

status_t
DisplayServer::Sync(bigtime_t timeout)
{
	if (IsMainThread() || tIsDisplayThread)
		return B_OK;
	auto done = std::make_shared<ServerAnswer<bool>>();
	Post([done] { done->Set(true); });
	bool handled;
	return done->Wait(timeout, &handled) ? B_OK : B_TIMED_OUT;
}

bool
DisplayServer::CanWaitForRequests() const
{
	return fData->running && !tIsDisplayThread;
}

void
DisplayServer::Run()
{
	// Qt starts only once something needs it: an application without windows
	// never opens the display.
	// Qt runs only in the thread that started it: an application run in another
	// thread after that has no display and only waits to quit.
	tIsDisplayThread = true;
	fData->running = true;
	{
		std::unique_lock<std::mutex> guard(fData->lock);
		bool displayHere = fData->application == nullptr
			|| fData->application->thread() == QThread::currentThread();
		fData->started.wait(guard, [this, displayHere] {
			return fData->quitPending || (displayHere
				&& (fData->startRequested || fData->application != nullptr));
		});
		if ((fData->application == nullptr || !displayHere) && fData->quitPending) {
			fData->quitPending = false;
			fData->running = false;
			tIsDisplayThread = false;
			return;
		}
	}
	EnsureStarted();
	if (!fData->quitPending)
		QGuiApplication::exec();
	// Carry out what the quitting windows asked for, then close what is left.
	QCoreApplication::sendPostedEvents();
	fData->windows.clear();
	fData->quitPending = false;
	fData->running = false;
	tIsDisplayThread = false;
}

DisplayLoop&
DisplayServer::Loop()
{
	static ServerLoop sLoop;
	return sLoop;
}

void
DisplayServer::Quit()
{
	std::lock_guard<std::mutex> guard(fData->lock);
	fData->quitPending = true;
	fData->started.notify_all();
	// A stale request from an earlier run finds quitPending cleared and stays.
	Data* data = fData.get();
	if (data->application != nullptr) {
		pvEnqueue([data] {
			if (data->quitPending)
				QCoreApplication::exit(0);
		});
	}
}

// #pragma mark - windows

int32
DisplayServer::CreateWindow(std::shared_ptr<InputSink> sink, const WindowSettings& settings)
{
	int32 id = fData->nextId++;
	Data* data = fData.get();
	Post([data, id, sink, settings] {
		auto window = std::make_unique<FrameWindow>(sink);
		window->setFlags(QtFlags(settings));
		if (settings.modal)
			window->setModality(Qt::ApplicationModal);
		window->setTitle(QString::fromStdString(settings.title));
		BRect frame = settings.frame;
		QSize size(frame.IntegerWidth() + 1, frame.IntegerHeight() + 1);
		window->SetContentSize(size);
		window->setGeometry(QRect(QPoint(int(frame.left), int(frame.top)), size));
		window->setMinimumSize(QSize(int(settings.minWidth) + 1, int(settings.minHeight) + 1));
		window->setMaximumSize(QSize(int(settings.maxWidth) + 1, int(settings.maxHeight) + 1));
		data->windows[id] = std::move(window);
	});
	return id;
}

FrameWindow*
FindFrameWindow(int32 id)
{
	auto& windows = DisplayServer::Default().fData->windows;
	auto found = windows.find(id);
	return found != windows.end() ? found->second.get() : nullptr;
}

void
ShowFrame(int32 id, const QImage& frame)
{
	if (FrameWindow* window = FindFrameWindow(id))
		window->SetFrame(frame);
}

void
DisplayServer::ShowWindow(int32 id, bool show)
{
	Post([id, show] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			window->setVisible(show);
			if (show && !(window->flags() & Qt::WindowDoesNotAcceptFocus))
				window->requestActivate();
		}
	});
}

void
DisplayServer::SetTitle(int32 id, const std::string& title)
{
	Post([id, title] {
		if (FrameWindow* window = FindFrameWindow(id))
			window->setTitle(QString::fromStdString(title));
	});
}

void
DisplayServer::SetFrame(int32 id, BRect frame)
{
	Post([id, frame] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QSize size(frame.IntegerWidth() + 1, frame.IntegerHeight() + 1);
			window->SetContentSize(size);
			window->setGeometry(QRect(QPoint(int(frame.left), int(frame.top)), size));
		}
	});
}

void
DisplayServer::SetSizeLimits(int32 id, float minWidth, float maxWidth, float minHeight,
	float maxHeight)
{
	Post([=] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			window->setMinimumSize(QSize(int(minWidth) + 1, int(minHeight) + 1));
			window->setMaximumSize(QSize(int(maxWidth) + 1, int(maxHeight) + 1));
		}
	});
}

void
DisplayServer::ActivateWindow(int32 id)
{
	Post([id] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			window->raise();
			window->requestActivate();
		}
	});
}

void
DisplayServer::MinimizeWindow(int32 id, bool minimize)
{
	Post([id, minimize] {
		if (FrameWindow* window = FindFrameWindow(id))
			window->setWindowStates(minimize ? Qt::WindowMinimized : Qt::WindowNoState);
	});
}

void
DisplayServer::MakePopup(int32 id, int32 owner, std::shared_ptr<InputSink> input)
{
	Post([id, owner, input] {
		FrameWindow* window = FindFrameWindow(id);
		if (window == nullptr)
			return;
		// Shown like a tooltip: on top, and never taking the focus from its owner.
		window->setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
		window->setTransientParent(FindFrameWindow(owner));
		window->SetInputSink(input);
	});
}

void
DisplayServer::DestroyWindow(int32 id)
{
	Data* data = fData.get();
	Post([data, id] { data->windows.erase(id); });
}

// #pragma mark - services

void
DisplayServer::Beep(int32 id)
{
	// QApplication::beep() only asks the platform integration for the bell.
	fData->beeps++;
	Post([id] {
		QApplication::beep();
		if (FrameWindow* window = FindFrameWindow(id))
			window->Flash();
	});
}

int32
DisplayServer::CountBeeps() const
{
	return fData->beeps;
}

uint32
DisplayServer::Modifiers()
{
	if (IsMainThread() && !fData->modifiersNoted)
		EnsureStarted();
	return fData->modifiers;
}

void
NoteModifiers(uint32 modifiers)
{
	DisplayServer::Default().fData->modifiers = modifiers;
	DisplayServer::Default().fData->modifiersNoted = true;
}

float
DisplayServer::ScaleFactor()
{
	EnsureStarted();
	std::lock_guard<std::mutex> guard(fData->lock);
	return fData->scaleFactor;
}

BRect
DisplayServer::ScreenFrame()
{
	EnsureStarted();
	std::lock_guard<std::mutex> guard(fData->lock);
	return fData->screenFrame;
}

}
