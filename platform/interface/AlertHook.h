#ifndef _ALERT_HOOK_H
#define _ALERT_HOOK_H

#include <functional>
#include <string>
#include <vector>

#include <Alert.h>

namespace BPrivate {

// What an alert would have shown.
struct AlertInfo {
	std::string title;
	std::string text;
	std::vector<std::string> buttons;
	alert_type type = B_INFO_ALERT;
};

// While a hook is set, BAlert::Go() hands it every alert; when the hook answers
// true with a button index, the alert is not shown and that button is chosen.
typedef std::function<bool(const AlertInfo& alert, int32* index)> AlertHook;
void SetAlertHook(AlertHook hook);
bool AnswerAlertByHook(const AlertInfo& alert, int32* index);

}

#endif
