#include "TestInput.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWheelEvent>

#include <InterfaceDefs.h>

#include "../FrameWindow.h"
#include "DisplayServer.h"

namespace BPrivate {

namespace {

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

// Sends what make builds to window id in the server's thread, if it is still there.
template<typename Make>
void
SendTo(int32 id, Make make)
{
	DisplayServer::Default().Post([id, make] {
		if (FrameWindow* window = FindFrameWindow(id))
			make(window);
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

void
PressKey(int32 id, int qtKey, const QString& text, uint32 modifiers)
{
	SendTo(id, [=](FrameWindow* window) {
		QKeyEvent press(QEvent::KeyPress, qtKey, QtModifiers(modifiers), text);
		QCoreApplication::sendEvent(window, &press);
		QKeyEvent release(QEvent::KeyRelease, qtKey, QtModifiers(modifiers), text);
		QCoreApplication::sendEvent(window, &release);
	});
}

}	// namespace

void
TestMouse(int32 id, TestMouseKind kind, BPoint where, uint32 changed, uint32 held,
	uint32 modifiers)
{
	QEvent::Type type = kind == kTestMousePress ? QEvent::MouseButtonPress
		: kind == kTestMouseRelease ? QEvent::MouseButtonRelease : QEvent::MouseMove;
	SendTo(id, [=](FrameWindow* window) {
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

void
TestWheel(int32 id, BPoint where, float dx, float dy)
{
	SendTo(id, [=](FrameWindow* window) {
		// Qt counts eighths of a degree, 120 to a step, positive upwards.
		QPointF point(where.x, where.y);
		QWheelEvent event(point, window->mapToGlobal(point), QPoint(),
			QPoint(int(-dx * 120), int(-dy * 120)), Qt::NoButton, Qt::NoModifier,
			Qt::NoScrollPhase, false);
		QCoreApplication::sendEvent(window, &event);
	});
}

void
TestKey(int32 id, uint32 key, uint32 modifiers)
{
	int qtKey;
	QString text;
	QtKey(key, modifiers, &qtKey, &text);
	PressKey(id, qtKey, text, modifiers);
}

void
TestFunctionKey(int32 id, int32 number, uint32 modifiers)
{
	PressKey(id, Qt::Key_F1 + number - 1, QString(), modifiers);
}

void
TestText(int32 id, const char* text)
{
	for (char32_t character : QString::fromUtf8(text).toUcs4())
		TestKey(id, uint32(character), 0);
}

void
TestComposed(int32 id, const char* text)
{
	QString committed = QString::fromUtf8(text);
	SendTo(id, [=](FrameWindow* window) {
		QInputMethodEvent event;
		event.setCommitString(committed);
		QCoreApplication::sendEvent(window, &event);
	});
}

void
TestDrop(int32 id, BPoint where, const std::vector<std::string>& paths)
{
	SendTo(id, [=](FrameWindow* window) {
		QMimeData data;
		QList<QUrl> urls;
		for (const std::string& path : paths)
			urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
		data.setUrls(urls);
		QDropEvent drop(QPointF(where.x, where.y), Qt::CopyAction, &data, Qt::NoButton,
			Qt::NoModifier);
		QCoreApplication::sendEvent(window, &drop);
	});
}

void
TestCloseBox(int32 id)
{
	SendTo(id, [](FrameWindow* window) {
		QCloseEvent event;
		QCoreApplication::sendEvent(window, &event);
	});
}

void
TestResize(int32 id, float width, float height)
{
	SendTo(id, [=](FrameWindow* window) { window->resize(int(width) + 1, int(height) + 1); });
}

void
TestActivate(int32 id)
{
	SendTo(id, [](FrameWindow* window) {
		QFocusEvent event(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
		QCoreApplication::sendEvent(window, &event);
	});
}

void
TestHoldModifiers(uint32 modifiers)
{
	NoteModifiers(modifiers);
}

namespace {

// What ask makes of the window's on-screen side (none: what T makes of nothing).
template<typename T>
T
AskWindow(int32 id, std::function<T(FrameWindow*)> ask)
{
	T result{};
	DisplayServer::Default().Ask<T>([id, ask] {
		FrameWindow* window = FindFrameWindow(id);
		return window != nullptr ? ask(window) : T{};
	}, &result);
	return result;
}

}	// namespace

int32
TestFlashes(int32 id)
{
	return AskWindow<int32>(id, [](FrameWindow* window) { return window->CountFlashes(); });
}

std::string
TestShownTitle(int32 id)
{
	return AskWindow<std::string>(id,
		[](FrameWindow* window) { return window->title().toStdString(); });
}

BPoint
TestShownSize(int32 id)
{
	return AskWindow<BPoint>(id,
		[](FrameWindow* window) { return BPoint(window->width(), window->height()); });
}

status_t
TestSyncDisplay(bigtime_t timeout)
{
	DisplayServer& server = DisplayServer::Default();
	server.Post([] { QGuiApplication::sync(); });
	return server.Sync(timeout);
}

}
