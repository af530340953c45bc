// What every accessible tree of the program has to keep. Each rule answers with a line for every
// part that breaks it, empty when none does.
#pragma once

#include <QStringList>

#include "accessible/far_tree.h"

namespace tavernook {

// Parts that can have the focus, in sight, of which nothing says what they are. The name of a box
// to choose from is its present choice, so that its label has to say it.
QStringList parts_without_a_name(const FarPart& root);

// Parts whose name is what stands in them: nobody hears what they are for.
QStringList values_as_names(const FarPart& root);

// Lists with a row that says nothing, or with a column without a title.
QStringList silent_rows(const FarPart& root);

// Of the words that are seen those that nobody hears. Signs and short words do not count, and words
// may be heard apart from one another as long as one part says them.
QStringList unheard(const FarPart& root, const QStringList& seen);

// Every cell of the lists with that name, with what is said beside its text.
QStringList cells(const FarPart& root, const QString& list);

}  // namespace tavernook
