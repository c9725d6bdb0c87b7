#include "DesktopClipboard.h"

#include <memory>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "DisplayServer.h"

namespace BPrivate {

namespace {

const bigtime_t kAnswerTimeout = 2000000;
const char kTextType[] = "text/plain";

// Runs request in the server's thread and waits for its status.
status_t
AskServer(const std::function<status_t()>& request)
{
	DisplayServer& server = DisplayServer::Default();
	if (!server.CanWaitForRequests())
		return B_NO_INIT;
	server.EnsureStarted();
	status_t status = B_TIMED_OUT;
	server.Ask(request, &status, kAnswerTimeout);
	return status;
}

}	// namespace

status_t
DesktopClipboard::Read(const std::vector<std::string>& types, Formats* formats)
{
	if (formats == nullptr)
		return B_BAD_VALUE;
	auto result = std::make_shared<Formats>();
	status_t status = AskServer([types, result] {
		const QMimeData* data = QGuiApplication::clipboard()->mimeData();
		if (data == nullptr)
			return B_OK;
		for (const std::string& type : types) {
			QString name = QString::fromStdString(type);
			if (type == kTextType && data->hasText()) {
				QByteArray text = data->text().toUtf8();
				(*result)[type].assign(text.constData(), text.size());
			} else if (type != kTextType && data->hasFormat(name)) {
				QByteArray bytes = data->data(name);
				(*result)[type].assign(bytes.constData(), bytes.size());
			}
		}
		return B_OK;
	});
	if (status == B_OK)
		*formats = std::move(*result);
	return status;
}

status_t
DesktopClipboard::Write(const Formats& formats)
{
	return AskServer([formats] {
		auto data = std::make_unique<QMimeData>();
		for (const auto& [type, bytes] : formats) {
			if (type == kTextType)
				data->setText(QString::fromUtf8(bytes.data(), qsizetype(bytes.size())));
			else
				data->setData(QString::fromStdString(type),
					QByteArray(bytes.data(), qsizetype(bytes.size())));
		}
		QGuiApplication::clipboard()->setMimeData(data.release());
		return B_OK;
	});
}

}
