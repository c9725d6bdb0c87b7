#ifndef STATUS_ERROR_H
#define STATUS_ERROR_H

#include <stdexcept>

#include <SupportDefs.h>

// A programming error (a missing view, menu or item) or a failed allocation,
// carrying its status code up to main.
class StatusError : public std::runtime_error {
public:
	StatusError(status_t status, const char* what)
		: std::runtime_error(what), fStatus(status) {}

	status_t Status() const { return fStatus; }

private:
	status_t fStatus;
};

#endif
