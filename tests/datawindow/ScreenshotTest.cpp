// vellum --screenshot drawing the data window of one attribute.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <Node.h>

#include "platform/storage/TempFolder.h"

namespace {

// The exit status of vellum with these arguments.
int
RunVellum(const std::string& arguments)
{
	std::string command = std::string("'") + VELLUM_PROGRAM + "' " + arguments
		+ " >/dev/null 2>&1";
	int status = system(command.c_str());
	return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}	// namespace

TEST(ScreenshotTest, ADataWindowIsDrawnForAnAttributeThatExists)
{
	TempFolder folder;
	ASSERT_XATTRS(folder);
	std::string path = folder.File("node");
	int32 value = 42;
	ASSERT_EQ(ssize_t(sizeof(value)),
		BNode(path.c_str()).WriteAttr("count", 'LONG', 0, &value, sizeof(value)));
	std::string picture = folder.Path("data.png");
	std::string node = " '" + path + "'";

	EXPECT_EQ(0, RunVellum("--screenshot '" + picture + "'" + node + " --attr count --view 5"));
	EXPECT_EQ(0, access(picture.c_str(), R_OK));
	EXPECT_EQ(1, RunVellum("--screenshot '" + folder.Path("none.png") + "'" + node
		+ " --attr missing"));
	EXPECT_NE(0, access(folder.Path("none.png").c_str(), R_OK));
	for (const char* wrong : {" --attr", " --attr count --view 6", " --view 1 --attr count"})
		EXPECT_EQ(2, RunVellum("--screenshot '" + picture + "'" + node + wrong)) << wrong;
}
