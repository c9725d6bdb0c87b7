#include "MimeSniffer.h"

#include <fcntl.h>
#include <fnmatch.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "StorageUtils.h"

namespace {

// The XDG data folders, most important first.
std::vector<std::string>
DataFolders()
{
	std::vector<std::string> folders;
	const char* dataHome = getenv("XDG_DATA_HOME");
	const char* home = getenv("HOME");
	if (dataHome != nullptr && dataHome[0] == '/')
		folders.emplace_back(dataHome);
	else if (home != nullptr && home[0] == '/')
		folders.push_back(std::string(home) + "/.local/share");
	const char* dataDirs = getenv("XDG_DATA_DIRS");
	std::stringstream dirs(dataDirs != nullptr && dataDirs[0] != '\0'
		? dataDirs : "/usr/local/share:/usr/share");
	std::string folder;
	while (std::getline(dirs, folder, ':')) {
		if (!folder.empty())
			folders.push_back(folder);
	}
	return folders;
}

}	// namespace

const MimeSniffer&
MimeSniffer::Default()
{
	static const MimeSniffer sniffer;
	return sniffer;
}

MimeSniffer::MimeSniffer()
{
	for (const std::string& folder : DataFolders())
		_Load(folder + "/mime/globs2");
	// Heavier patterns first, and of equal weight the longer (more specific) one.
	std::stable_sort(fGlobs.begin(), fGlobs.end(), [](const Glob& a, const Glob& b) {
		if (a.weight != b.weight)
			return a.weight > b.weight;
		return a.pattern.size() > b.pattern.size();
	});
}

std::string
MimeSniffer::TypeOf(const std::string& path) const
{
	std::string type = _TypeByName(leaf_of(path));
	return type.empty() ? _TypeByContent(path) : type;
}

void
MimeSniffer::_Load(const std::string& file)
{
	// Lines are "weight:type:pattern[:flags]"; "#" starts a comment.
	std::ifstream input(file);
	std::string line;
	while (std::getline(input, line)) {
		if (line.empty() || line[0] == '#')
			continue;
		std::stringstream fields(line);
		std::string weight;
		Glob glob;
		std::string flags;
		if (!std::getline(fields, weight, ':') || !std::getline(fields, glob.type, ':')
			|| !std::getline(fields, glob.pattern, ':'))
			continue;
		std::getline(fields, flags);
		glob.weight = atoi(weight.c_str());
		glob.caseSensitive = flags.find("cs") != std::string::npos;
		fGlobs.push_back(std::move(glob));
	}
}

std::string
MimeSniffer::_TypeByName(const std::string& leaf) const
{
	for (const Glob& glob : fGlobs) {
		if (fnmatch(glob.pattern.c_str(), leaf.c_str(),
				glob.caseSensitive ? 0 : FNM_CASEFOLD) == 0)
			return glob.type;
	}
	return std::string();
}

std::string
MimeSniffer::_TypeByContent(const std::string& path)
{
	int fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
	if (fd < 0)
		return "application/octet-stream";
	unsigned char head[512];
	ssize_t length = read(fd, head, sizeof(head));
	close(fd);
	if (length == 0)
		return "application/x-zerosize";
	if (length < 0)
		return "application/octet-stream";
	// Text is what has no NUL and no control characters other than white space.
	for (ssize_t i = 0; i < length; i++) {
		if (head[i] < 0x20 && strchr("\t\n\r\f\v\033", head[i]) == nullptr)
			return "application/octet-stream";
	}
	return "text/plain";
}
