#include "gui/native/formatters.h"

#include <algorithm>

namespace rotavel {

bool QzUpperCaseFormatter::IsPartialStringValid(QString& text) const {
    if (!QzMaximumLengthFormatter::IsPartialStringValid(text)) {
        return false;
    }
    text = text.toUpper();
    return true;
}

bool QzLowerCaseFormatter::IsPartialStringValid(QString& text) const {
    if (!QzMaximumLengthFormatter::IsPartialStringValid(text)) {
        return false;
    }
    text = text.toLower();
    return true;
}

bool QzNumericFormatter::IsPartialStringValid(QString& text) const {
    return QzMaximumLengthFormatter::IsPartialStringValid(text) &&
           std::all_of(text.begin(), text.end(),
                       [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

}  // namespace rotavel
