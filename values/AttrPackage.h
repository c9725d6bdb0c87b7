#ifndef ATTR_PACKAGE_H
#define ATTR_PACKAGE_H

#include <SupportDefs.h>

// An owned copy of one attribute: its type, size, name and value bytes. Its
// flattened form (the name and its closing NUL, the type and the size as
// little-endian 32-bit words, then the bytes) carries it between programs.
class AttrPackage {
public:
	static const int32 kNameLength = 256;

								AttrPackage();
								AttrPackage(const char* name, uint32 type,
									uint32 size, const void* data);
	virtual						~AttrPackage();

								AttrPackage(const AttrPackage&) = delete;
			AttrPackage&		operator=(const AttrPackage&) = delete;

			void				Init();
			// Replaces the package's contents; a failed allocation throws
			// std::bad_alloc and leaves the data NULL.
			void				Set(const char* name, uint32 type, uint32 size,
									const void* data);
			void				DeleteOld();

			const char*			Name() const { return fName; }
			uint32				Type() const { return fType; }
			uint32				Size() const { return fSize; }
			void*				Data() const { return fData; }

			ssize_t				FlattenedSize() const;
			// B_BAD_VALUE when size is smaller than FlattenedSize().
			status_t			Flatten(void* buffer, ssize_t size) const;
			// Takes the package from a flattened form of exactly size bytes;
			// B_BAD_DATA, leaving the package as it was, for a buffer that is
			// not one (a name without its end, sizes that do not add up).
			status_t			Unflatten(const void* buffer, ssize_t size);

private:
			uint32				fType;
			uint32				fSize;
			char				fName[kNameLength];
			char*				fData;
};

#endif
