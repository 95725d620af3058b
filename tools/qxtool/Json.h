// Lists as JSON, which is UTF-8 whatever the terminal is.
#pragma once

#include "TextTable.h"

namespace qxtool {

/// Prints an array with an object for each row. A column is named by its head; one without a name, or whose
/// name is taken, by its number from 1, as "#3". An integer that is empty is null.
/// @throws Failure for a byte that has no form in UTF-8.
void PrintJsonList(const TextList& list);

/// Prints the row of a list that has only one, as an object.
void PrintJsonObject(const TextList& list);

}  // namespace qxtool
