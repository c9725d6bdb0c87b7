#ifndef _MIME_SNIFFER_H
#define _MIME_SNIFFER_H

#include <string>
#include <vector>

// The desktop's guess at a file's MIME type: the glob patterns of the shared MIME
// database (mime/globs2 under the XDG data folders) against the leaf name, then a
// look at the first bytes.
class MimeSniffer {
public:
	static const MimeSniffer& Default();

	std::string TypeOf(const std::string& path) const;

private:
	struct Glob {
		int weight;
		std::string pattern;
		std::string type;
		bool caseSensitive;
	};

	MimeSniffer();
	void _Load(const std::string& file);
	std::string _TypeByName(const std::string& leaf) const;
	static std::string _TypeByContent(const std::string& path);

	std::vector<Glob> fGlobs;
};

#endif
