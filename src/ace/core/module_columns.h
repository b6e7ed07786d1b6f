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
/// stay. A kind outside the members copies nothing. What is equal in both stays where it is: a
/// fixed set, an array of texts or numbers, and each element of numbered sets with the same bounds.
/// So an edit costs what comparing costs, and what was found by place in an equal array is found
/// there still. While a list of `to` is held: error 10, and nothing has been copied, equal or not.
/// After error 7 what stands before in the order has been copied, and a count goes with its arrays,
/// all of them or none. No messages run.
void CopyModule(std::int32_t moduleKind, CopyFor purpose, const ModuleLists& from, ModuleLists& to);

/// The part of `CopyModule` of the matrix without its global lists: rows, tables, template number
/// and influence flags.
void CopyMatrix(const ModuleLists& from, ModuleLists& to);

/// The rest of it: the global lists.
void CopyMatrixGlobal(const ModuleLists& from, ModuleLists& to);

}  // namespace ace
