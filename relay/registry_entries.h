// Entries below HKEY_CLASSES_ROOT, where 32-bit and 64-bit programs see different ones.
#pragma once

#include "platform/platform.h"

// The two views. Of the keys used here, TypeLib is the same in both.
inline constexpr REGSAM registryViews[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

WideString IdentifierText(REFGUID id); // in braces

// A text of a key, empty when there is no such text; the key's own with a null `name`.
WideString ReadText(REGSAM view, const WideString &path, LPCWSTR name);

// Makes the key if need be.
HRESULT WriteText(REGSAM view, const WideString &path, LPCWSTR name, const WideString &value);

// A key with all below it; what is not there is no failure.
HRESULT RemoveKey(REGSAM view, const WideString &path);

// An interface by whose type library calls get from one process to another, in both views: what RegisterTypeLib enters
// of it differs from system to system in the views it reaches.
HRESULT EnterInterface(REFIID iid, const WideString &name, REFGUID libraryId, const WideString &libraryVersion);

// Takes it back from both views, but where it belongs to another library by now, or another version.
HRESULT RemoveInterface(REFIID iid, REFGUID libraryId, const WideString &libraryVersion);
