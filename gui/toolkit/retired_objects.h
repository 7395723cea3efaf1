#pragma once

class QObject;

namespace rotavel {

// Objects of the toolkit's that are gone to the program but may be in the middle of telling it
// something, however deep in calls: they are deleted once no callback can be under way.

void Retire(QObject* object);

// Deletes what has been retired. For the outermost wait and the end of the program only.
void DeleteRetiredObjects();

}  // namespace rotavel
