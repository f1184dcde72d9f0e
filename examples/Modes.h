#pragma once

namespace host {

// What the program can show. Each returns whether all went well.

/// Loads a file and prints it as an outline with handles, types and values; then, unless the path
/// is null, the one value at that item path.
bool ShowFile(const wchar_t* fileName, const wchar_t* itemPath);

/// How the loader finds encodings: one small document in each of them.
bool ShowEncodings();

/// Builds an order with a generator, grafts a file into it, saves it in every encoding and reads it
/// back.
bool ShowBuilding(const wchar_t* graftedFile);

/// Fills a package, partly from an object of the host by way of a delegate, saves it in every
/// encoding and loads it back.
bool ShowPackage();

}  // namespace host
