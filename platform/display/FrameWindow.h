#ifndef _FRAME_WINDOW_H
#define _FRAME_WINDOW_H

#include <QDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QRasterWindow>

#include <Message.h>
#include <Messenger.h>

// The on-screen side of a BWindow: shows the frames the window's thread renders
// and turns Qt's input into BeOS messages posted to the window.

namespace BPrivate {

class FrameWindow : public QRasterWindow {
public:
	FrameWindow(const BMessenger& target);

	void SetFrame(const QImage& frame);
	void SetContentSize(QSize size) { fContentSize = size; }
	// Where mouse and keys go (unless set: the mouse to the window itself, keys
	// to its preferred handler, the focus view).
	void SetInputTarget(const BMessenger& target) { fInputTarget = target; }

protected:
	bool event(QEvent* event) override;
	void paintEvent(QPaintEvent* event) override;
	void resizeEvent(QResizeEvent* event) override;
	void moveEvent(QMoveEvent* event) override;
	void mousePressEvent(QMouseEvent* event) override;
	void mouseReleaseEvent(QMouseEvent* event) override;
	void mouseMoveEvent(QMouseEvent* event) override;
	void wheelEvent(QWheelEvent* event) override;
	void keyPressEvent(QKeyEvent* event) override;
	void keyReleaseEvent(QKeyEvent* event) override;
	void focusInEvent(QFocusEvent* event) override;
	void focusOutEvent(QFocusEvent* event) override;

private:
	void pvSend(BMessage& message);
	void pvSendInput(BMessage& message);
	void pvSendKey(BMessage& message, const QByteArray& bytes);
	void pvComposed(QInputMethodEvent* event);
	void pvMouse(uint32 what, QMouseEvent* event);
	void pvKey(uint32 what, QKeyEvent* event);
	void pvDrop(QDropEvent* event);

	BMessenger fTarget;
	BMessenger fInputTarget;
	BMessenger fKeyTarget;
	QImage fFrame;
	QSize fContentSize;
	Qt::MouseButton fLastButton = Qt::NoButton;
	QPointF fLastPress;
	bigtime_t fLastPressTime = 0;
	int32 fClicks = 0;
};

// Records the modifier state of an input event for modifiers().
void NoteModifiers(uint32 modifiers);
uint32 BeModifiers(Qt::KeyboardModifiers modifiers);
// Shows a finished frame in window id; runs in the server's thread.
void ShowFrame(int32 id, const QImage& frame);
FrameWindow* FindFrameWindow(int32 id);

}

#endif
