#ifndef _FILE_MANAGER_TESTER_H
#define _FILE_MANAGER_TESTER_H

#include <memory>
#include <string>
#include <vector>

#include <SupportDefs.h>

namespace BPrivate {

// Stands in for the desktop's file manager in tests: owns
// org.freedesktop.FileManager1 on the D-Bus bus at an address and records the
// URIs that ShowItems calls ask for. It lives in the display server's thread,
// so the display server must be running (WindowTester::RunHeadless).
class FileManagerTester {
public:
	explicit FileManagerTester(const char* busAddress);
	~FileManagerTester();

	// B_OK once the service is on the bus.
	status_t InitCheck() const { return fStatus; }
	std::vector<std::string> ShownItems() const;

	FileManagerTester(const FileManagerTester&) = delete;
	FileManagerTester& operator=(const FileManagerTester&) = delete;

private:
	struct Service;
	std::shared_ptr<Service> fService;
	status_t fStatus;
};

}

#endif
