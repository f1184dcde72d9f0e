#pragma once

/// \file
/// The message codes of loads.

namespace QXJSON {

/// What was wrong in the last load of a parser or package; 0 after a successful one. The codes up
/// to 17 are those of RapidJSON's parser, passed on as it reports them; the rest are the library's
/// own. Each is shown with its English sentence; there are nine other languages.
enum MessageCode : int {
    kNoError = 0,                ///< "No error."
    kDocumentEmpty = 1,          ///< "The document is empty."
    kRootNotSingular = 2,        ///< "The root must not be followed by other values."
    kInvalidValue = 3,           ///< "Invalid value."; also a root that is not an object or array
    kMissingName = 4,            ///< "Missing a name for object member."
    kMissingColon = 5,           ///< "Missing a colon after a name of object member."
    kMissingCommaOrBrace = 6,    ///< "Missing a comma or '}' after an object member."
    kMissingCommaOrBracket = 7,  ///< "Missing a comma or ']' after an array element."
    kInvalidHexEscape = 8,       ///< "Incorrect hex digit after \\u escape in string."
    kInvalidSurrogate = 9,       ///< "The surrogate pair in string is invalid."
    kInvalidEscape = 10,         ///< "Invalid escape character in string."
    kMissingQuote = 11,          ///< "Missing a closing quotation mark in string."
    kInvalidEncoding = 12,       ///< "Invalid encoding in string."
    kNumberTooBig = 13,          ///< "Number too big to be stored in double."
    kMissingFraction = 14,       ///< "Missing fraction part in number."
    kMissingExponent = 15,       ///< "Missing exponent in number."
    kTerminated = 16,            ///< "Terminate parsing due to Handler error."
    kUnspecificSyntax = 17,      ///< "Unspecific syntax error."
    kNullText = 18,              ///< "The pointer to the json text is null."
    kNullFileName = 19,          ///< "The pointer to the file name is null."
    kNoSuchFile = 20,            ///< "The file name does not exist."; also one that does not open
    kEmptyText = 21,             ///< "The string is empty."
    kRootNotObject = 22,  ///< "Failed to load the JSON data because its root node is not an object"
};

/// How many message codes there are; they are dense from 0.
constexpr int kMessageCount = 23;

}  // namespace QXJSON
