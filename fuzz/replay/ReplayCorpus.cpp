// Runs a fuzz target's entry point once for every file of its seed corpus, so
// that the corpora are replayed by the regular tests, without a fuzzing compiler.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int
main(int argc, char** argv)
{
	if (argc != 2) {
		fprintf(stderr, "usage: %s CORPUS-FOLDER\n", argv[0]);
		return 2;
	}
	int replayed = 0;
	for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
		std::ifstream file(entry.path(), std::ios::binary);
		std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
		LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
		replayed++;
	}
	printf("%d passed, 0 failed\n", replayed);
	return replayed > 0 ? 0 : 1;
}
