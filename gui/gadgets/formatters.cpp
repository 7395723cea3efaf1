#include "gui/gadgets/formatters.h"

#include <algorithm>

namespace rotavel {

namespace {

bool IsLineEndOrTab(QChar unit) {
    return unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator;
}

QString OneLine(QString text) {
    while (!text.isEmpty() && IsLineEndOrTab(text.back())) {
        text.chop(1);
    }
    std::replace_if(text.begin(), text.end(), IsLineEndOrTab, QChar(u' '));
    return text;
}

}  // namespace

QValidator::State QzMaximumLengthFormatter::validate(QString& proposed, int&) const {
    return IsPartialStringValid(OneLine(proposed)) ? Acceptable : Invalid;
}

QString QzMaximumLengthFormatter::Replacement(const QString& proposed) const {
    return Folded(OneLine(proposed));
}

bool QzNumericFormatter::IsPartialStringValid(const QString& text) const {
    return QzMaximumLengthFormatter::IsPartialStringValid(text) &&
           std::all_of(text.begin(), text.end(),
                       [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

}  // namespace rotavel
