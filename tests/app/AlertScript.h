#ifndef ALERT_SCRIPT_H
#define ALERT_SCRIPT_H

#include <string>
#include <utility>
#include <vector>

#include <WindowTester.h>

// For as long as it lives, answers every alert with the next of the given
// button indexes (0 once they run out) and keeps what each alert showed.
class AlertScript {
public:
	explicit AlertScript(std::vector<int32> answers = {})
		: fAnswers(std::move(answers))
	{
		BPrivate::WindowTester::SetAlertResponder([this](const BPrivate::AlertInfo& alert) {
			fSeen.push_back(alert);
			return fSeen.size() <= fAnswers.size() ? fAnswers[fSeen.size() - 1] : int32(0);
		});
	}

	~AlertScript() { BPrivate::WindowTester::SetAlertResponder(nullptr); }

	AlertScript(const AlertScript&) = delete;
	AlertScript& operator=(const AlertScript&) = delete;

	const std::vector<BPrivate::AlertInfo>& Seen() const { return fSeen; }

	// The texts shown so far, in order.
	std::vector<std::string> Texts() const
	{
		std::vector<std::string> texts;
		for (const BPrivate::AlertInfo& alert : fSeen)
			texts.push_back(alert.text);
		return texts;
	}

private:
	std::vector<int32> fAnswers;
	std::vector<BPrivate::AlertInfo> fSeen;
};

#endif
