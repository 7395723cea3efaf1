#include "gui/toolkit/retired_objects.h"

#include <utility>
#include <vector>

#include <QObject>
#include <QPointer>

namespace rotavel {

namespace {

std::vector<QPointer<QObject>> retired;

}  // namespace

void Retire(QObject* object) {
    retired.emplace_back(object);
}

void DeleteRetiredObjects() {
    // One may take another along, as a window does with its gadgets.
    for (const QPointer<QObject>& object : std::exchange(retired, {})) {
        delete object;
    }
}

}  // namespace rotavel
