#ifndef _FRAME_WINDOW_H
#define _FRAME_WINDOW_H

#include <QDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QRasterWindow>

#include <memory>

#include "InputSink.h"

// The on-screen side of a BWindow: shows the frames the window's thread renders
// and hands Qt's input to the window's sink in plain terms.

namespace BPrivate {

class FrameWindow : public QRasterWindow {
public:
	explicit FrameWindow(std::shared_ptr<InputSink> sink);

	void SetFrame(const QImage& frame);
	// Frames the window in the highlight colour for a moment: the bell seen.
	void Flash();
	int32 CountFlashes() const { return fFlashes; }
	void SetContentSize(QSize size) { fContentSize = size; }
	// Where mouse and keys go instead of the window's own sink (a popup's owner).
	void SetInputSink(std::shared_ptr<InputSink> sink) { fInputSink = std::move(sink); }

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
	void pvSend(InputEvent& event);
	void pvSendInput(InputEvent& event);
	void pvComposed(QInputMethodEvent* event);
	void pvMouse(InputEvent::Kind kind, QMouseEvent* event);
	void pvKey(InputEvent::Kind kind, QKeyEvent* event);
	void pvDrop(QDropEvent* event);

	std::shared_ptr<InputSink> fSink;
	std::shared_ptr<InputSink> fInputSink;
	QImage fFrame;
	QSize fContentSize;
	Qt::MouseButton fLastButton = Qt::NoButton;
	QPointF fLastPress;
	bigtime_t fLastPressTime = 0;
	int32 fClicks = 0;
	bool fFlashing = false;
	int32 fFlashes = 0;
};

// Records the modifier state of an input event for modifiers().
void NoteModifiers(uint32 modifiers);
uint32 BeModifiers(Qt::KeyboardModifiers modifiers);
// Shows a finished frame in window id; runs in the server's thread.
void ShowFrame(int32 id, const QImage& frame);
FrameWindow* FindFrameWindow(int32 id);

}

#endif
