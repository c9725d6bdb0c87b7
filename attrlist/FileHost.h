#ifndef FILE_HOST_H
#define FILE_HOST_H

class BrindleFile;

// What the attribute panel asks of the view that hosts it: the node it shows.
// The inspector's main view implements it, so the panel needs nothing above it.
class FileHost {
public:
	virtual ~FileHost() = default;

	// The node shown, or null while there is none.
	virtual BrindleFile* File() const = 0;
};

#endif
