// Entries under HKEY_CLASSES_ROOT, of which 32-bit and 64-bit programs have separate views.
#pragma once

#include "platform/platform.h"

// The two views. Of the keys used here, TypeLib is the same in both.
inline constexpr REGSAM registryViews[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

WideString IdentifierText(REFGUID id); // in braces

// Reads the text of a named value of a key, or of its default value for a null `name`; empty when there is none, or one
// that is longer than any path or identifier.
HRESULT ReadText(REGSAM view, const WideString &path, LPCWSTR name, WideString &text);

// Creates the key if necessary.
HRESULT WriteText(REGSAM view, const WideString &path, LPCWSTR name, const WideString &value);

// Deletes a key and everything under it; a key that does not exist is not an error.
HRESULT RemoveKey(REGSAM view, const WideString &path);

// Registers, in both views, an interface that is marshalled by its type library: which views RegisterTypeLib writes to
// differs between systems.
HRESULT EnterInterface(REFIID iid, const WideString &name, REFGUID libraryId, const WideString &libraryVersion);

// Removes it from both views, except where it now belongs to another library or another version.
HRESULT RemoveInterface(REFIID iid, REFGUID libraryId, const WideString &libraryVersion);
