#ifndef SETTINGS_FOLDER_H
#define SETTINGS_FOLDER_H

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "platform/storage/TempFolder.h"

// Settings go to a folder of the test's own (through XDG_CONFIG_HOME) while it
// lives.
class SettingsFolder {
public:
	SettingsFolder()
	{
		if (const char* previous = getenv("XDG_CONFIG_HOME"))
			fPrevious = previous;
		setenv("XDG_CONFIG_HOME", fFolder.Root().c_str(), 1);
	}

	~SettingsFolder()
	{
		if (fPrevious.empty())
			unsetenv("XDG_CONFIG_HOME");
		else
			setenv("XDG_CONFIG_HOME", fPrevious.c_str(), 1);
	}

	const std::string& Root() const { return fFolder.Root(); }
	std::string SettingsPath() const { return fFolder.Path("Vellum_Settings"); }

	void WriteSettings(const std::string& text) const
	{
		std::ofstream(SettingsPath(), std::ios::binary) << text;
	}

	// The settings file's text, empty while there is none.
	std::string Settings() const
	{
		std::ifstream file(SettingsPath(), std::ios::binary);
		std::stringstream text;
		text << file.rdbuf();
		return text.str();
	}

private:
	TempFolder fFolder;
	std::string fPrevious;
};

#endif
