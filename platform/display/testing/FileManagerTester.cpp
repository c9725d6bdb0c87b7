#include "FileManagerTester.h"

#include <atomic>
#include <functional>
#include <mutex>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "DisplayServer.h"
#include "FileManagerBridge.h"

namespace BPrivate {

namespace {

const char* const kService = FileManagerBridge::kService;
const char* const kObject = FileManagerBridge::kObject;
const char* const kInterface = FileManagerBridge::kInterface;
const bigtime_t kAnswerTimeout = 5000000;

std::atomic<int32> sNextConnection{1};

}	// namespace

struct FileManagerTester::Service {
	mutable std::mutex lock;
	std::vector<std::string> items;
	// Touched only in the server's thread.
	QString connectionName;
	std::unique_ptr<QDBusVirtualObject> object;
};

namespace {

// Answers ShowItems(uris, startupId) and records the URIs.
class ShowItemsObject : public QDBusVirtualObject {
public:
	explicit ShowItemsObject(std::function<void(const QStringList&)> record)
		: fRecord(std::move(record))
	{
	}

	QString introspect(const QString&) const override
	{
		return QString("<interface name=\"%1\"><method name=\"ShowItems\">"
			"<arg type=\"as\" direction=\"in\"/><arg type=\"s\" direction=\"in\"/>"
			"</method></interface>").arg(kInterface);
	}

	bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
	{
		if (message.interface() != kInterface || message.member() != "ShowItems"
			|| message.arguments().isEmpty())
			return false;
		fRecord(message.arguments().first().toStringList());
		connection.send(message.createReply());
		return true;
	}

private:
	std::function<void(const QStringList&)> fRecord;
};

}	// namespace

FileManagerTester::FileManagerTester(const char* busAddress)
	: fService(std::make_shared<Service>()),
	fStatus(B_NO_INIT)
{
	auto answer = std::make_shared<ServerAnswer<status_t>>();
	// Qt's strings share their data between copies: the server's thread makes its own.
	std::string address(busAddress != nullptr ? busAddress : "");
	std::shared_ptr<Service> service = fService;
	DisplayServer::Default().Post([answer, address, service] {
		service->connectionName = QString("vellum-file-manager-%1").arg(sNextConnection++);
		QDBusConnection bus = QDBusConnection::connectToBus(QString::fromStdString(address),
			service->connectionName);
		Service* record = service.get();
		service->object = std::make_unique<ShowItemsObject>([record](const QStringList& uris) {
			std::lock_guard<std::mutex> guard(record->lock);
			for (const QString& uri : uris)
				record->items.push_back(uri.toStdString());
		});
		bool ready = bus.isConnected()
			&& bus.registerVirtualObject(kObject, service->object.get())
			&& bus.registerService(kService);
		answer->Set(ready ? B_OK : B_ERROR);
	});
	if (!answer->Wait(kAnswerTimeout, &fStatus))
		fStatus = B_TIMED_OUT;
}

FileManagerTester::~FileManagerTester()
{
	std::shared_ptr<Service> service = fService;
	DisplayServer& server = DisplayServer::Default();
	server.Post([service] {
		QDBusConnection bus(service->connectionName);
		bus.unregisterService(kService);
		bus.unregisterObject(kObject);
		QDBusConnection::disconnectFromBus(service->connectionName);
		service->object.reset();
	});
	server.Sync(kAnswerTimeout);
}

std::vector<std::string>
FileManagerTester::ShownItems() const
{
	std::lock_guard<std::mutex> guard(fService->lock);
	return fService->items;
}

}
