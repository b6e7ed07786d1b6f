/// Copies of a module's lists.
#pragma once

#include <ace/core/module_lists.h>

namespace ace {

/// What a copy of a module's lists is made for. Each takes other fields of the wireless kinds
/// along.
enum class CopyFor {
    Editor,  ///< everything that the editor shows and changes
    Store,   ///< back from the editor: counts and lists; keys and names of tests and steps stay
    Print,   ///< the lists that are printed; the matrix is not
};

/// Copies the fields of one module kind from `from` to `to`, in the order of the table; all others
/// stay. A kind outside the members copies nothing. While a list of `to` is held: error 10, and
/// nothing has been copied. After error 7 what stands before in the order has been copied, and a
/// count goes with its arrays. No messages run.
void CopyModule(std::int32_t moduleKind, CopyFor purpose, const ModuleLists& from, ModuleLists& to);

/// The part of `CopyModule` of the matrix without its global lists: rows, tables, template number
/// and influence flags.
void CopyMatrix(const ModuleLists& from, ModuleLists& to);

}  // namespace ace
