// Reading every attribute of a crowded node: through BNode against a plain loop of
// llistxattr and lgetxattr on the same file. Linux lists at most 64 KiB of names,
// which with typed names is about 2,500 attributes.

#include <sys/xattr.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <Node.h>

namespace {

const int kAttributes = 2500;

const std::string&
CrowdedFile()
{
	static std::string path = [] {
		std::string file = (access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp")
			+ std::string("/vellum-bench-") + std::to_string(getpid());
		FILE* created = fopen(file.c_str(), "w");
		if (created != nullptr)
			fclose(created);
		for (int i = 0; i < kAttributes; i++) {
			std::string name = "user.haiku.a" + std::to_string(i) + "#LONG";
			setxattr(file.c_str(), name.c_str(), &i, sizeof(i), 0);
		}
		atexit([] { unlink(CrowdedFile().c_str()); });
		return file;
	}();
	return path;
}

void
ThroughBNode(benchmark::State& state)
{
	BNode node(CrowdedFile().c_str());
	char name[B_ATTR_NAME_LENGTH];
	char value[64];
	for (auto _ : state) {
		int64 bytes = 0;
		node.RewindAttrs();
		while (node.GetNextAttrName(name) == B_OK) {
			attr_info info;
			if (node.GetAttrInfo(name, &info) == B_OK)
				bytes += node.ReadAttr(name, info.type, 0, value, sizeof(value));
		}
		benchmark::DoNotOptimize(bytes);
	}
	state.SetItemsProcessed(state.iterations() * kAttributes);
}

void
PlainXattrLoop(benchmark::State& state)
{
	const char* path = CrowdedFile().c_str();
	std::vector<char> names(65536);
	char value[64];
	for (auto _ : state) {
		int64 bytes = 0;
		ssize_t length = llistxattr(path, names.data(), names.size());
		for (ssize_t offset = 0; offset < length;
				offset += strlen(names.data() + offset) + 1)
			bytes += lgetxattr(path, names.data() + offset, value, sizeof(value));
		benchmark::DoNotOptimize(bytes);
	}
	state.SetItemsProcessed(state.iterations() * kAttributes);
}

}	// namespace

BENCHMARK(ThroughBNode)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainXattrLoop)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
