/// @file
/// Variants as VARIANT and SAFEARRAY, the form that automation servers take and give. Only on Windows.
///
/// Types, values, dimensions, bounds and the order of elements are the same in both forms, with these
/// exceptions. Narrow text becomes wide text by code page 950 and comes back as wide text. An int and an
/// unsigned int of the system (VT_INT, VT_UINT) become 32-bit integers, an unsigned 64-bit integer a signed
/// one. Decimals (VT_DECIMAL) and records (VT_RECORD) have no form here. A reference to a value is read as
/// that value.
///
/// An object is an IUnknown or, with the type code varDispatch, an IDispatch; each form holds a reference of
/// its own. Arrays may be nested 256 deep, since the system frees them by recursion.
#pragma once

#include <qxTools/runtime/Variant.h>

struct tagVARIANT;

namespace qxTools {

/// Returns a copy of the system's value.
/// @throws EVariantError "VARIANT has no Variant form" if its type or a text of half characters has none, or
/// an integer is above the largest 64-bit one; "Variant is nested too deeply"; "Variant array is too large".
/// If memory runs out, std::bad_alloc is thrown.
QXTOOLS_API Variant VariantFromOle(const tagVARIANT& value);

/// Replaces `result`, which must hold a value (VariantInit makes one), with a copy of `value`. An empty
/// element of an array becomes the zero of the array's type, and an element of another type is converted by
/// the system.
/// @throws EVariantError "Variant has no VARIANT form" for a reference, a type code that the system does not
/// know, an array without dimensions or an element that the system does not convert; "Variant is nested too
/// deeply"; "VARIANT cannot be replaced" if it holds a locked array. If memory runs out, std::bad_alloc is
/// thrown. `result` is unchanged then.
QXTOOLS_API void VariantToOle(const Variant& value, tagVARIANT& result);

}  // namespace qxTools
