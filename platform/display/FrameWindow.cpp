#include "FrameWindow.h"

#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QStyleHints>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>

#include <InterfaceDefs.h>
#include <OS.h>

namespace BPrivate {

namespace {

// How long and how wide the frame flashes when the window beeps.
const int kFlashMilliseconds = 150;
const int kFlashWidth = 4;

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

FrameWindow::FrameWindow(std::shared_ptr<InputSink> sink)
	: fSink(std::move(sink))
{
}

void
FrameWindow::SetFrame(const QImage& frame)
{
	fFrame = frame;
	update();
}

void
FrameWindow::pvSend(InputEvent& event)
{
	event.when = system_time();
	fSink->Deliver(event);
}

void
FrameWindow::pvSendInput(InputEvent& event)
{
	event.when = system_time();
	(fInputSink != nullptr ? fInputSink : fSink)->Deliver(event);
}

bool
FrameWindow::event(QEvent* event)
{
	switch (event->type()) {
		case QEvent::Close: {
			// The window decides in QuitRequested(); it goes away when it quits.
			event->ignore();
			InputEvent close(InputEvent::kCloseRequested);
			pvSend(close);
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
FrameWindow::Flash()
{
	fFlashes++;
	fFlashing = true;
	update();
	QTimer::singleShot(kFlashMilliseconds, this, [this] {
		fFlashing = false;
		update();
	});
}

void
FrameWindow::paintEvent(QPaintEvent*)
{
	QPainter painter(this);
	painter.fillRect(QRect(QPoint(0, 0), size()), Qt::white);
	painter.drawImage(0, 0, fFrame);
	if (fFlashing) {
		QPen pen(QGuiApplication::palette().color(QPalette::Highlight), kFlashWidth);
		pen.setJoinStyle(Qt::MiterJoin);
		painter.setPen(pen);
		painter.drawRect(QRectF(kFlashWidth / 2.0, kFlashWidth / 2.0, width() - kFlashWidth,
			height() - kFlashWidth));
	}
}

void
FrameWindow::resizeEvent(QResizeEvent*)
{
	// Only sizes that the user or the desktop chose are news to the window.
	if (size() == fContentSize)
		return;
	fContentSize = size();
	InputEvent resized(InputEvent::kResized);
	resized.width = width() - 1;
	resized.height = height() - 1;
	pvSend(resized);
}

void
FrameWindow::moveEvent(QMoveEvent*)
{
	InputEvent moved(InputEvent::kMoved);
	moved.where = BPoint(x(), y());
	pvSend(moved);
}

void
FrameWindow::pvMouse(InputEvent::Kind kind, QMouseEvent* event)
{
	InputEvent mouse{kind};
	mouse.modifiers = BeModifiers(event->modifiers());
	NoteModifiers(mouse.modifiers);
	mouse.where = ToPoint(event->position());
	mouse.screenWhere = ToPoint(event->globalPosition());
	mouse.buttons = BeButtons(event->buttons());
	if (kind == InputEvent::kMouseDown) {
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
		mouse.clicks = fClicks;
	}
	pvSendInput(mouse);
}

void
FrameWindow::mousePressEvent(QMouseEvent* event)
{
	pvMouse(InputEvent::kMouseDown, event);
}

void
FrameWindow::mouseReleaseEvent(QMouseEvent* event)
{
	pvMouse(InputEvent::kMouseUp, event);
}

void
FrameWindow::mouseMoveEvent(QMouseEvent* event)
{
	pvMouse(InputEvent::kMouseMoved, event);
}

void
FrameWindow::wheelEvent(QWheelEvent* event)
{
	InputEvent wheel(InputEvent::kWheel);
	// BeOS counts wheel steps, positive downwards and to the right.
	wheel.wheelX = -event->angleDelta().x() / 120.0f;
	wheel.wheelY = -event->angleDelta().y() / 120.0f;
	pvSendInput(wheel);
}

void
FrameWindow::pvKey(InputEvent::Kind kind, QKeyEvent* event)
{
	InputEvent key{kind};
	key.modifiers = BeModifiers(event->modifiers());
	NoteModifiers(key.modifiers);
	if (IsModifierKey(event->key())) {
		key.kind = InputEvent::kModifiersChanged;
		pvSendInput(key);
		return;
	}
	QByteArray bytes = KeyBytes(event);
	if (bytes.isEmpty())
		return;
	// Function keys are told apart by their BeOS key codes.
	bool function = event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F12;
	key.key = function ? int32(B_F1_KEY + event->key() - Qt::Key_F1)
		: int32(event->nativeScanCode());
	key.repeat = event->isAutoRepeat();
	key.bytes = bytes.toStdString();
	pvSendInput(key);
}

void
FrameWindow::pvComposed(QInputMethodEvent* event)
{
	// What an input method composed arrives as typed text.
	QByteArray bytes = event->commitString().toUtf8();
	event->accept();
	if (bytes.isEmpty())
		return;
	InputEvent key(InputEvent::kKeyDown);
	key.bytes = bytes.toStdString();
	pvSendInput(key);
}

void
FrameWindow::keyPressEvent(QKeyEvent* event)
{
	pvKey(InputEvent::kKeyDown, event);
}

void
FrameWindow::keyReleaseEvent(QKeyEvent* event)
{
	pvKey(InputEvent::kKeyUp, event);
}

void
FrameWindow::focusInEvent(QFocusEvent*)
{
	InputEvent activated(InputEvent::kActivated);
	activated.active = true;
	pvSend(activated);
}

void
FrameWindow::focusOutEvent(QFocusEvent*)
{
	InputEvent activated(InputEvent::kActivated);
	pvSend(activated);
}

void
FrameWindow::pvDrop(QDropEvent* event)
{
	InputEvent drop(InputEvent::kDrop);
	for (const QUrl& url : event->mimeData()->urls()) {
		if (url.isLocalFile())
			drop.paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
	}
	if (drop.paths.empty())
		return;
	event->acceptProposedAction();
	drop.where = ToPoint(event->position());
	drop.screenWhere = drop.where + BPoint(x(), y());
	pvSend(drop);
}

}
