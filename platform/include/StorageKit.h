#ifndef _STORAGE_KIT_H
#define _STORAGE_KIT_H

#include <Directory.h>
#include <Entry.h>
#include <File.h>
#include <FindDirectory.h>
#include <Node.h>
#include <NodeInfo.h>
#include <Path.h>
#include <Statable.h>
#include <StorageDefs.h>
#include <SymLink.h>
#include <fs_attr.h>

#endif
