#include "AlertHook.h"

#include <mutex>

namespace BPrivate {

namespace {

std::mutex sHookLock;
AlertHook sHook;

}

void
SetAlertHook(AlertHook hook)
{
	std::lock_guard<std::mutex> guard(sHookLock);
	sHook = std::move(hook);
}

bool
AnswerAlertByHook(const AlertInfo& alert, int32* index)
{
	AlertHook hook;
	{
		std::lock_guard<std::mutex> guard(sHookLock);
		hook = sHook;
	}
	return hook && hook(alert, index);
}

}
