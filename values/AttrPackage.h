#ifndef ATTR_PACKAGE_H
#define ATTR_PACKAGE_H

#include <SupportDefs.h>

// An owned copy of one attribute: its type, size, name and value bytes.
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

private:
			uint32				fType;
			uint32				fSize;
			char				fName[kNameLength];
			char*				fData;
};

#endif
