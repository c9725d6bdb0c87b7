#include "LaunchService.h"

#include <memory>

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QStringList>

#include "DisplayServer.h"

namespace BPrivate {

namespace {

const char kObjectPath[] = "/Launch";
const char kInterface[] = "beos.roster.Launch";
const bigtime_t kAnswerTimeout = 5000000;
const int kCallTimeoutMs = 3000;

// The bus name of a signature: "application/x-vnd.Maker-Name" becomes
// "application.x_vnd.Maker_Name".
QString
BusName(const char* signature)
{
	QString name = QString::fromUtf8(signature);
	for (QChar& c : name) {
		if (c == '/')
			c = '.';
		else if (!c.isLetterOrNumber() && c != '.' && c != '_')
			c = '_';
	}
	return name;
}

QStringList
ToStringList(const std::vector<std::string>& items)
{
	QStringList list;
	for (const std::string& item : items)
		list.append(QString::fromLocal8Bit(item.c_str()));
	return list;
}

// The object later launches call; it lives in the server's thread.
class LaunchReceiver : public QObject {
	Q_OBJECT
	Q_CLASSINFO("D-Bus Interface", "beos.roster.Launch")

public:
	explicit LaunchReceiver(std::function<void(const LaunchRequest&)> handler)
		: fHandler(std::move(handler))
	{
	}

public slots:
	void Launch(const QStringList& arguments, const QString& cwd)
	{
		LaunchRequest request;
		for (const QString& argument : arguments)
			request.arguments.push_back(argument.toLocal8Bit().toStdString());
		request.cwd = cwd.toLocal8Bit().toStdString();
		fHandler(request);
	}

private:
	std::function<void(const LaunchRequest&)> fHandler;
};

// Runs work in the server's thread and waits for its status; before the
// display loop runs, the main thread (where the server starts) does it itself.
status_t
AskServer(std::function<status_t()> work)
{
	DisplayServer& server = DisplayServer::Default();
	server.EnsureStarted();
	if (!server.CanWaitForRequests())
		return work();
	status_t status = B_TIMED_OUT;
	server.Ask(work, &status, kAnswerTimeout);
	return status;
}

}	// namespace

status_t
ClaimLaunchName(const char* signature, std::function<void(const LaunchRequest&)> handler)
{
	QString name = BusName(signature);
	return AskServer([name, handler] {
		QDBusConnection bus = QDBusConnection::sessionBus();
		if (!bus.isConnected())
			return status_t(B_ERROR);
		auto reply = bus.interface()->registerService(name,
			QDBusConnectionInterface::DontQueueService,
			QDBusConnectionInterface::DontAllowReplacement);
		if (!reply.isValid() || reply.value() != QDBusConnectionInterface::ServiceRegistered)
			return status_t(B_NAME_IN_USE);
		// Never destroyed: it answers for as long as the process runs.
		auto receiver = new LaunchReceiver(handler);
		bus.registerObject(kObjectPath, receiver, QDBusConnection::ExportAllSlots);
		return status_t(B_OK);
	});
}

status_t
HandOverLaunch(const char* signature, const LaunchRequest& request)
{
	QString name = BusName(signature);
	QStringList arguments = ToStringList(request.arguments);
	QString cwd = QString::fromLocal8Bit(request.cwd.c_str());
	return AskServer([=] {
		QDBusMessage call = QDBusMessage::createMethodCall(name, kObjectPath, kInterface,
			"Launch");
		call << arguments << cwd;
		QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block,
			kCallTimeoutMs);
		return reply.type() == QDBusMessage::ReplyMessage ? status_t(B_OK) : status_t(B_ERROR);
	});
}

}

#include "LaunchService.moc"
