#include "WindowTester.h"

#include <cstdlib>
#include <memory>
#include <mutex>
#include <thread>

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWheelEvent>

#include <Application.h>
#include <InterfaceDefs.h>
#include <Window.h>

#include "Canvas.h"
#include "DisplayServer.h"
#include "FrameWindow.h"

namespace BPrivate {

namespace {

const bigtime_t kIdleTimeout = 20000000;
const uint32 kIdlePing = 'wtIP';

std::mutex sResponderLock;
std::function<int32(const AlertInfo&)> sResponder;

Qt::KeyboardModifiers
QtModifiers(uint32 modifiers)
{
	Qt::KeyboardModifiers result;
	if (modifiers & B_SHIFT_KEY)
		result |= Qt::ShiftModifier;
	if (modifiers & B_COMMAND_KEY)
		result |= Qt::ControlModifier;
	if (modifiers & B_OPTION_KEY)
		result |= Qt::AltModifier;
	if (modifiers & B_CONTROL_KEY)
		result |= Qt::MetaModifier;
	return result;
}

Qt::MouseButtons
QtButtons(uint32 buttons)
{
	Qt::MouseButtons result;
	if (buttons & B_PRIMARY_MOUSE_BUTTON)
		result |= Qt::LeftButton;
	if (buttons & B_SECONDARY_MOUSE_BUTTON)
		result |= Qt::RightButton;
	if (buttons & B_TERTIARY_MOUSE_BUTTON)
		result |= Qt::MiddleButton;
	return result;
}

// A mouse event for window id: changed are the buttons pressed or released,
// held those down after the event.
void
SendMouse(int32 id, QEvent::Type type, BPoint where, uint32 changed, uint32 held,
	uint32 modifiers)
{
	DisplayServer::Default().Post([=] {
		FrameWindow* window = FindFrameWindow(id);
		if (window == nullptr)
			return;
		Qt::MouseButtons buttons = QtButtons(changed);
		Qt::MouseButton button = (buttons & Qt::LeftButton) ? Qt::LeftButton
			: (buttons & Qt::RightButton) ? Qt::RightButton
			: (buttons & Qt::MiddleButton) ? Qt::MiddleButton : Qt::NoButton;
		QPointF point(where.x, where.y);
		QMouseEvent event(type, point, window->mapToGlobal(point), button, QtButtons(held),
			QtModifiers(modifiers));
		QCoreApplication::sendEvent(window, &event);
	});
}

// The Qt key and text of a BeOS key character.
void
QtKey(uint32 key, uint32 modifiers, int* qtKey, QString* text)
{
	static const std::pair<uint32, int> kSpecial[] = {
		{B_ENTER, Qt::Key_Return}, {B_TAB, Qt::Key_Tab}, {B_BACKSPACE, Qt::Key_Backspace},
		{B_ESCAPE, Qt::Key_Escape}, {B_DELETE, Qt::Key_Delete}, {B_INSERT, Qt::Key_Insert},
		{B_HOME, Qt::Key_Home}, {B_END, Qt::Key_End}, {B_PAGE_UP, Qt::Key_PageUp},
		{B_PAGE_DOWN, Qt::Key_PageDown}, {B_LEFT_ARROW, Qt::Key_Left},
		{B_RIGHT_ARROW, Qt::Key_Right}, {B_UP_ARROW, Qt::Key_Up},
		{B_DOWN_ARROW, Qt::Key_Down}};
	for (const auto& [be, qt] : kSpecial) {
		if (key == be) {
			*qtKey = key == B_TAB && (modifiers & B_SHIFT_KEY) != 0 ? int(Qt::Key_Backtab) : qt;
			*text = key == B_ENTER ? QString("\r") : key == B_TAB ? QString("\t") : QString();
			return;
		}
	}
	char32_t code = char32_t(key);
	*qtKey = int(QChar::toUpper(code));
	*text = (modifiers & B_COMMAND_KEY) != 0 ? QString() : QString::fromUcs4(&code, 1);
}

}	// namespace

void
WindowTester::RunHeadless(const std::function<void()>& body, const char* signature)
{
	RunApplicationHeadless([signature] { return new BApplication(signature); }, body);
}

void
WindowTester::RunApplicationHeadless(const std::function<BApplication*()>& makeApplication,
	const std::function<void()>& body)
{
	setenv("QT_QPA_PLATFORM", "offscreen", 1);
	std::unique_ptr<BApplication> application(makeApplication());
	std::thread worker([&body] {
		// The body finds the display server serving, as a running program would.
		DisplayServer::Default().Sync();
		body();
		// Close what the test left open, then end the application.
		while (be_app->CountWindows() > 0) {
			BWindow* window = be_app->WindowAt(0);
			if (window == nullptr || !window->Lock())
				continue;
			window->Quit();
		}
		be_app_messenger.SendMessage(B_QUIT_REQUESTED);
	});
	application->Run();
	worker.join();
}

void
WindowTester::SetAlertResponder(std::function<int32(const AlertInfo&)> responder)
{
	std::lock_guard<std::mutex> guard(sResponderLock);
	sResponder = std::move(responder);
}

bool
WindowTester::AnswerAlert(const AlertInfo& alert, int32* index)
{
	std::function<int32(const AlertInfo&)> responder;
	{
		std::lock_guard<std::mutex> guard(sResponderLock);
		responder = sResponder;
	}
	if (!responder)
		return false;
	*index = responder(alert);
	return true;
}

int32
WindowTester::CountBeeps()
{
	return DisplayServer::Default().CountBeeps();
}

void
WindowTester::HoldModifiers(uint32 modifiers)
{
	NoteModifiers(modifiers);
}

WindowTester::WindowTester(BWindow* window)
	: fWindow(window),
	fMessenger(window),
	fId(window->fServerId)
{
}

bool
WindowTester::pvLock()
{
	// The window may have quit (and gone) meanwhile.
	return fMessenger.LockTarget();
}

status_t
WindowTester::WaitForIdle()
{
	DisplayServer& server = DisplayServer::Default();
	server.Post([] { QGuiApplication::sync(); });
	status_t status = server.Sync(kIdleTimeout);
	if (status != B_OK)
		return status;
	// What the window posted to itself meanwhile (an invoked control's message)
	// is part of the work.
	for (;;) {
		// Whatever the window makes of it, the answer comes once it is dispatched;
		// a window that has quit answers B_BAD_PORT_ID.
		BMessage ping(kIdlePing), reply;
		status = fMessenger.SendMessage(&ping, &reply, B_INFINITE_TIMEOUT, kIdleTimeout);
		if (status != B_OK || !pvLock())
			return status;
		bool waiting = fWindow->IsMessageWaiting();
		fWindow->Unlock();
		if (!waiting)
			return B_OK;
	}
}

void
WindowTester::MouseDown(BPoint where, uint32 buttons, uint32 modifiers)
{
	SendMouse(fId, QEvent::MouseButtonPress, where, buttons, buttons, modifiers);
}

void
WindowTester::MouseUp(BPoint where, uint32 buttons, uint32 modifiers)
{
	SendMouse(fId, QEvent::MouseButtonRelease, where, buttons, 0, modifiers);
}

void
WindowTester::MouseMove(BPoint where, uint32 buttons, uint32 modifiers)
{
	SendMouse(fId, QEvent::MouseMove, where, 0, buttons, modifiers);
}

void
WindowTester::Click(BPoint where, uint32 modifiers)
{
	MouseDown(where, B_PRIMARY_MOUSE_BUTTON, modifiers);
	MouseUp(where, B_PRIMARY_MOUSE_BUTTON, modifiers);
}

void
WindowTester::Wheel(BPoint where, float dx, float dy)
{
	MouseMove(where);
	int32 id = fId;
	DisplayServer::Default().Post([=] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			// Qt counts eighths of a degree, 120 to a step, positive upwards.
			QPointF point(where.x, where.y);
			QWheelEvent event(point, window->mapToGlobal(point), QPoint(),
				QPoint(int(-dx * 120), int(-dy * 120)), Qt::NoButton, Qt::NoModifier,
				Qt::NoScrollPhase, false);
			QCoreApplication::sendEvent(window, &event);
		}
	});
}

void
WindowTester::TypeKey(uint32 key, uint32 modifiers)
{
	int qtKey;
	QString text;
	QtKey(key, modifiers, &qtKey, &text);
	pvPressKey(qtKey, text, modifiers);
}

void
WindowTester::TypeFunctionKey(int32 number, uint32 modifiers)
{
	pvPressKey(Qt::Key_F1 + number - 1, QString(), modifiers);
}

void
WindowTester::pvPressKey(int qtKey, const QString& text, uint32 modifiers)
{
	int32 id = fId;
	DisplayServer::Default().Post([=] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QKeyEvent press(QEvent::KeyPress, qtKey, QtModifiers(modifiers), text);
			QCoreApplication::sendEvent(window, &press);
			QKeyEvent release(QEvent::KeyRelease, qtKey, QtModifiers(modifiers), text);
			QCoreApplication::sendEvent(window, &release);
		}
	});
}

void
WindowTester::TypeText(const char* text)
{
	for (char32_t character : QString::fromUtf8(text).toUcs4())
		TypeKey(uint32(character));
}

void
WindowTester::TypeComposed(const char* text)
{
	int32 id = fId;
	QString committed = QString::fromUtf8(text);
	DisplayServer::Default().Post([=] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QInputMethodEvent event;
			event.setCommitString(committed);
			QCoreApplication::sendEvent(window, &event);
		}
	});
}

void
WindowTester::DropFiles(BPoint where, const std::vector<std::string>& paths)
{
	int32 id = fId;
	DisplayServer::Default().Post([=] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QMimeData data;
			QList<QUrl> urls;
			for (const std::string& path : paths)
				urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
			data.setUrls(urls);
			QDropEvent drop(QPointF(where.x, where.y), Qt::CopyAction, &data, Qt::NoButton,
				Qt::NoModifier);
			QCoreApplication::sendEvent(window, &drop);
		}
	});
}

void
WindowTester::ClickCloseBox()
{
	int32 id = fId;
	DisplayServer::Default().Post([id] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QCloseEvent event;
			QCoreApplication::sendEvent(window, &event);
		}
	});
}

void
WindowTester::UserResize(float width, float height)
{
	int32 id = fId;
	DisplayServer::Default().Post([=] {
		if (FrameWindow* window = FindFrameWindow(id))
			window->resize(int(width) + 1, int(height) + 1);
	});
}

void
WindowTester::Activate()
{
	int32 id = fId;
	DisplayServer::Default().Post([id] {
		if (FrameWindow* window = FindFrameWindow(id)) {
			QFocusEvent event(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
			QCoreApplication::sendEvent(window, &event);
		}
	});
}

rgb_color
WindowTester::PixelAt(BPoint where)
{
	if (!pvLock())
		return rgb_color{0, 0, 0, 0};
	rgb_color color = fWindow->fCanvas->PixelAt(int32(where.x), int32(where.y));
	fWindow->Unlock();
	return color;
}

status_t
WindowTester::SaveFrame(const char* path)
{
	if (!pvLock())
		return B_BAD_VALUE;
	status_t status = fWindow->fCanvas->SavePNG(path);
	fWindow->Unlock();
	return status;
}

}
