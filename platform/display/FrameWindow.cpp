#include "FrameWindow.h"

#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QUrl>
#include <QWheelEvent>

#include <AppDefs.h>
#include <Entry.h>
#include <InterfaceDefs.h>
#include <Looper.h>
#include <OS.h>

#include "../app/MessagePrivate.h"

namespace BPrivate {

namespace {

BPoint
ToPoint(QPointF point)
{
	return BPoint(float(point.x()), float(point.y()));
}

uint32
BeButtons(Qt::MouseButtons buttons)
{
	uint32 result = 0;
	if (buttons & Qt::LeftButton)
		result |= B_PRIMARY_MOUSE_BUTTON;
	if (buttons & Qt::RightButton)
		result |= B_SECONDARY_MOUSE_BUTTON;
	if (buttons & Qt::MiddleButton)
		result |= B_TERTIARY_MOUSE_BUTTON;
	return result;
}

// The BeOS character of a key that has no text of its own (0 when none).
char
SpecialKeyByte(int key)
{
	switch (key) {
		case Qt::Key_Return:
		case Qt::Key_Enter:
			return B_ENTER;
		case Qt::Key_Tab:
		case Qt::Key_Backtab:
			return B_TAB;
		case Qt::Key_Backspace:
			return B_BACKSPACE;
		case Qt::Key_Escape:
			return B_ESCAPE;
		case Qt::Key_Delete:
			return B_DELETE;
		case Qt::Key_Insert:
			return B_INSERT;
		case Qt::Key_Home:
			return B_HOME;
		case Qt::Key_End:
			return B_END;
		case Qt::Key_PageUp:
			return B_PAGE_UP;
		case Qt::Key_PageDown:
			return B_PAGE_DOWN;
		case Qt::Key_Left:
			return B_LEFT_ARROW;
		case Qt::Key_Right:
			return B_RIGHT_ARROW;
		case Qt::Key_Up:
			return B_UP_ARROW;
		case Qt::Key_Down:
			return B_DOWN_ARROW;
		default:
			return key >= Qt::Key_F1 && key <= Qt::Key_F12 ? B_FUNCTION_KEY : 0;
	}
}

bool
IsModifierKey(int key)
{
	return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt
		|| key == Qt::Key_Meta || key == Qt::Key_Super_L || key == Qt::Key_Super_R
		|| key == Qt::Key_AltGr || key == Qt::Key_CapsLock;
}

// The text of a key press as BeOS gives it: with Command (Ctrl) held, the
// character itself rather than a control code.
QByteArray
KeyBytes(QKeyEvent* event)
{
	if (char special = SpecialKeyByte(event->key()))
		return QByteArray(1, special);
	int key = event->key();
	if ((event->modifiers() & Qt::ControlModifier) && key >= Qt::Key_Space
		&& key <= Qt::Key_AsciiTilde) {
		char c = char(key);
		if (c >= 'A' && c <= 'Z' && !(event->modifiers() & Qt::ShiftModifier))
			c = char(c - 'A' + 'a');
		return QByteArray(1, c);
	}
	return event->text().toUtf8();
}

}	// namespace

uint32
BeModifiers(Qt::KeyboardModifiers modifiers)
{
	uint32 result = 0;
	if (modifiers & Qt::ShiftModifier)
		result |= B_SHIFT_KEY | B_LEFT_SHIFT_KEY;
	if (modifiers & Qt::ControlModifier)
		result |= B_COMMAND_KEY | B_LEFT_COMMAND_KEY;
	if (modifiers & Qt::AltModifier)
		result |= B_OPTION_KEY | B_LEFT_OPTION_KEY;
	if (modifiers & Qt::MetaModifier)
		result |= B_CONTROL_KEY | B_LEFT_CONTROL_KEY;
	return result;
}

FrameWindow::FrameWindow(const BMessenger& target)
	: fTarget(target),
	fKeyTarget(target)
{
	BLooper* looper = nullptr;
	target.Target(&looper);
	if (looper != nullptr)
		fKeyTarget = BMessenger(nullptr, looper);
}

void
FrameWindow::SetFrame(const QImage& frame)
{
	fFrame = frame;
	update();
}

void
FrameWindow::pvSend(BMessage& message)
{
	message.AddInt64("when", system_time());
	fTarget.SendMessage(&message);
}

void
FrameWindow::pvSendInput(BMessage& message)
{
	message.AddInt64("when", system_time());
	(fInputTarget.IsValid() ? fInputTarget : fTarget).SendMessage(&message);
}

bool
FrameWindow::event(QEvent* event)
{
	switch (event->type()) {
		case QEvent::Close: {
			// The window decides in QuitRequested(); it goes away when it quits.
			event->ignore();
			BMessage message(B_QUIT_REQUESTED);
			fTarget.SendMessage(&message);
			return true;
		}
		case QEvent::DragEnter:
		case QEvent::DragMove: {
			auto drag = static_cast<QDropEvent*>(event);
			if (drag->mimeData() != nullptr && drag->mimeData()->hasUrls())
				drag->acceptProposedAction();
			return true;
		}
		case QEvent::Drop:
			pvDrop(static_cast<QDropEvent*>(event));
			return true;
		case QEvent::InputMethodQuery: {
			auto query = static_cast<QInputMethodQueryEvent*>(event);
			query->setValue(Qt::ImEnabled, true);
			query->accept();
			return true;
		}
		case QEvent::InputMethod:
			pvComposed(static_cast<QInputMethodEvent*>(event));
			return true;
		default:
			return QRasterWindow::event(event);
	}
}

void
FrameWindow::paintEvent(QPaintEvent*)
{
	QPainter painter(this);
	painter.fillRect(QRect(QPoint(0, 0), size()), Qt::white);
	painter.drawImage(0, 0, fFrame);
}

void
FrameWindow::resizeEvent(QResizeEvent*)
{
	// Only sizes that the user or the desktop chose are news to the window.
	if (size() == fContentSize)
		return;
	fContentSize = size();
	BMessage message(B_WINDOW_RESIZED);
	message.AddInt32("width", width() - 1);
	message.AddInt32("height", height() - 1);
	pvSend(message);
}

void
FrameWindow::moveEvent(QMoveEvent*)
{
	BMessage message(B_WINDOW_MOVED);
	message.AddPoint("where", BPoint(x(), y()));
	pvSend(message);
}

void
FrameWindow::pvMouse(uint32 what, QMouseEvent* event)
{
	uint32 modifiers = BeModifiers(event->modifiers());
	NoteModifiers(modifiers);
	BMessage message(what);
	message.AddPoint("where", ToPoint(event->position()));
	message.AddPoint("be:view_where", ToPoint(event->position()));
	message.AddPoint("screen_where", ToPoint(event->globalPosition()));
	message.AddInt32("modifiers", modifiers);
	message.AddInt32("buttons", BeButtons(event->buttons()));
	if (what == B_MOUSE_DOWN) {
		bigtime_t now = system_time();
		QPointF distance = event->position() - fLastPress;
		bool again = event->button() == fLastButton
			&& now - fLastPressTime
				< bigtime_t(QGuiApplication::styleHints()->mouseDoubleClickInterval()) * 1000
			&& qAbs(distance.x()) <= 5 && qAbs(distance.y()) <= 5;
		fClicks = again ? fClicks + 1 : 1;
		fLastButton = event->button();
		fLastPress = event->position();
		fLastPressTime = now;
		message.AddInt32("clicks", fClicks);
	}
	pvSendInput(message);
}

void
FrameWindow::mousePressEvent(QMouseEvent* event)
{
	pvMouse(B_MOUSE_DOWN, event);
}

void
FrameWindow::mouseReleaseEvent(QMouseEvent* event)
{
	pvMouse(B_MOUSE_UP, event);
}

void
FrameWindow::mouseMoveEvent(QMouseEvent* event)
{
	pvMouse(B_MOUSE_MOVED, event);
}

void
FrameWindow::wheelEvent(QWheelEvent* event)
{
	BMessage message(B_MOUSE_WHEEL_CHANGED);
	// BeOS counts wheel steps, positive downwards and to the right.
	message.AddFloat("be:wheel_delta_x", -event->angleDelta().x() / 120.0f);
	message.AddFloat("be:wheel_delta_y", -event->angleDelta().y() / 120.0f);
	pvSendInput(message);
}

void
FrameWindow::pvKey(uint32 what, QKeyEvent* event)
{
	uint32 modifiers = BeModifiers(event->modifiers());
	NoteModifiers(modifiers);
	BMessage message(what);
	message.AddInt32("modifiers", modifiers);
	if (IsModifierKey(event->key())) {
		message.what = B_MODIFIERS_CHANGED;
		pvSendInput(message);
		return;
	}
	QByteArray bytes = KeyBytes(event);
	if (bytes.isEmpty())
		return;
	// Function keys are told apart by their BeOS key codes.
	bool function = event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F12;
	message.AddInt32("key", function ? int32(B_F1_KEY + event->key() - Qt::Key_F1)
		: int32(event->nativeScanCode()));
	if (event->isAutoRepeat())
		message.AddInt32("be:key_repeat", 1);
	pvSendKey(message, bytes);
}

void
FrameWindow::pvSendKey(BMessage& message, const QByteArray& bytes)
{
	message.AddString("bytes", bytes.constData());
	for (char byte : bytes)
		message.AddInt8("byte", byte);
	message.AddInt32("raw_char", uchar(bytes[0]));
	message.AddInt64("when", system_time());
	(fInputTarget.IsValid() ? fInputTarget : fKeyTarget).SendMessage(&message);
}

void
FrameWindow::pvComposed(QInputMethodEvent* event)
{
	// What an input method composed arrives as typed text.
	QByteArray bytes = event->commitString().toUtf8();
	event->accept();
	if (bytes.isEmpty())
		return;
	BMessage message(B_KEY_DOWN);
	message.AddInt32("modifiers", 0);
	message.AddInt32("key", 0);
	pvSendKey(message, bytes);
}

void
FrameWindow::keyPressEvent(QKeyEvent* event)
{
	pvKey(B_KEY_DOWN, event);
}

void
FrameWindow::keyReleaseEvent(QKeyEvent* event)
{
	pvKey(B_KEY_UP, event);
}

void
FrameWindow::focusInEvent(QFocusEvent*)
{
	BMessage message(B_WINDOW_ACTIVATED);
	message.AddBool("active", true);
	pvSend(message);
}

void
FrameWindow::focusOutEvent(QFocusEvent*)
{
	BMessage message(B_WINDOW_ACTIVATED);
	message.AddBool("active", false);
	pvSend(message);
}

void
FrameWindow::pvDrop(QDropEvent* event)
{
	BMessage message(B_SIMPLE_DATA);
	for (const QUrl& url : event->mimeData()->urls()) {
		if (!url.isLocalFile())
			continue;
		entry_ref ref;
		if (get_ref_for_path(QFile::encodeName(url.toLocalFile()).constData(), &ref) == B_OK)
			message.AddRef("refs", &ref);
	}
	if (!message.HasRef("refs"))
		return;
	event->acceptProposedAction();
	BPoint where = ToPoint(event->position());
	MessageAccess::SetDropped(&message, where + BPoint(x(), y()), BPoint(0, 0));
	pvSend(message);
}

}
