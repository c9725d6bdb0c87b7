#include "FileManagerBridge.h"

#include <memory>
#include <string>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QProcess>
#include <QStringList>
#include <QUrl>

#include "DisplayServer.h"

namespace BPrivate {

namespace {

// A file manager that is started for the call gets this long to answer.
const int kCallTimeoutMs = 2000;
const bigtime_t kAnswerTimeout = 3000000;

// In the server's thread: the call goes out at once, its answer arrives
// through the event loop.
void
CallShowItems(const QString& uri, std::shared_ptr<ServerAnswer<status_t>> answer)
{
	QDBusConnection bus = QDBusConnection::sessionBus();
	if (!bus.isConnected()) {
		answer->Set(B_NAME_NOT_FOUND);
		return;
	}
	QDBusMessage call = QDBusMessage::createMethodCall(FileManagerBridge::kService,
		FileManagerBridge::kObject, FileManagerBridge::kInterface, "ShowItems");
	call << QStringList{uri} << QString();
	auto watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, kCallTimeoutMs));
	QObject::connect(watcher, &QDBusPendingCallWatcher::finished,
		[answer](QDBusPendingCallWatcher* finished) {
			answer->Set(finished->isError() ? B_NAME_NOT_FOUND : B_OK);
			finished->deleteLater();
		});
}

}	// namespace

status_t
FileManagerBridge::ShowItem(const char* path)
{
	if (path == nullptr)
		return B_BAD_VALUE;
	DisplayServer& server = DisplayServer::Default();
	if (!server.CanWaitForRequests())
		return B_ERROR;
	// Qt's strings share their data between copies: the URI is made in the
	// server's thread, which is the only one to hold it.
	std::string file(path);
	auto answer = std::make_shared<ServerAnswer<status_t>>();
	server.Post([file, answer] {
		CallShowItems(QUrl::fromLocalFile(QString::fromLocal8Bit(file.c_str()))
			.toString(QUrl::FullyEncoded), answer);
	});
	status_t status;
	if (!answer->Wait(kAnswerTimeout, &status))
		return B_TIMED_OUT;
	return status;
}

status_t
FileManagerBridge::OpenFolder(const char* opener, const char* folder)
{
	return QProcess::startDetached(QString::fromLocal8Bit(opener),
		{QString::fromLocal8Bit(folder)}) ? B_OK : B_ERROR;
}

}
