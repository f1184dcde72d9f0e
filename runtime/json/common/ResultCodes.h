#pragma once

/// \file
/// The results of operations.

namespace QXJSON {

/// A failure that an operation's own checks find: the first check that fails decides, and its value
/// is the result of the operation.
enum JSONFUN_ERROR : int {
    /// Plain failure: an index out of range, a missing output pointer, a load that failed (the
    /// message code says why), a value that cannot be represented.
    kPlainFailure = 0,
    /// The name of a member is null where one is required, or no member has that name.
    kNoMember = -1,
    /// The item handle is unknown or leads nowhere, or the value reference is null.
    kNoValue = -2,
    /// The value is of the wrong kind for the operation, or a conversion failed.
    kWrongKind = -3,
    /// A text to be stored is null.
    kNoText = -4,
};

// The results that do not come from the checks of a value.

/// The operation did what it was asked to do.
constexpr int kSuccess = 1;
/// An exception or a processor fault ended the operation.
constexpr int kEscapedFailure = -5;
/// An item path is malformed, or nothing exists at it.
constexpr int kBadPath = -10;

}  // namespace QXJSON
