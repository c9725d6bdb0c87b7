#ifndef TEMP_FOLDER_H
#define TEMP_FOLDER_H

#include <ftw.h>
#include <sys/statfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

// A fresh folder for one test on a file system with user extended attributes
// (tmpfs under /dev/shm when there is one), removed with its contents afterwards.
class TempFolder {
public:
	TempFolder()
	{
		const char* base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : getenv("TMPDIR");
		std::string pattern = std::string(base != nullptr ? base : "/tmp")
			+ "/vellum-test-" + std::string(6, 'X');
		if (mkdtemp(pattern.data()) != nullptr)
			fPath = pattern;
	}

	~TempFolder()
	{
		if (!fPath.empty()) {
			nftw(fPath.c_str(), [](const char* path, const struct stat*, int, FTW*) {
				return remove(path);
			}, 16, FTW_DEPTH | FTW_PHYS);
		}
	}

	// Empty when user xattrs work here, else why not, naming the file system.
	std::string XattrProblem() const
	{
		if (fPath.empty())
			return "cannot create a temporary folder";
		if (setxattr(fPath.c_str(), "user.vellum.probe", "1", 1, 0) == 0)
			return std::string();
		struct statfs fs;
		statfs(fPath.c_str(), &fs);
		char text[200];
		snprintf(text, sizeof(text), "the file system of %s (type 0x%lx) has no user "
			"extended attributes", fPath.c_str(), static_cast<long>(fs.f_type));
		return text;
	}

	const std::string& Root() const { return fPath; }
	std::string Path(const std::string& leaf) const { return fPath + "/" + leaf; }

	// Creates a file holding text and returns its path.
	std::string File(const std::string& leaf, const std::string& text = "") const
	{
		std::string path = Path(leaf);
		FILE* file = fopen(path.c_str(), "w");
		fputs(text.c_str(), file);
		fclose(file);
		return path;
	}

private:
	std::string fPath;
};

// Runs a shell command and returns its standard output.
inline std::string
RunCommand(const std::string& command)
{
	std::string output;
	FILE* pipe = popen(command.c_str(), "r");
	char buffer[4096];
	size_t count;
	while (pipe != nullptr && (count = fread(buffer, 1, sizeof(buffer), pipe)) > 0)
		output.append(buffer, count);
	if (pipe != nullptr)
		pclose(pipe);
	return output;
}

#define ASSERT_XATTRS(folder) \
	ASSERT_EQ((folder).XattrProblem(), std::string())

#endif
