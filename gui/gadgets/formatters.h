#pragma once

#include <cstdint>
#include <limits>

#include <QValidator>

#include "gui/toolkit/text.h"

namespace rotavel {

// The formatter of a text field judges every edit of the user's by the whole text that the field
// would then hold, and may want another text in its place. This one limits the length. Line ends
// and tabs, which a paste can bring along, are none of the formatters' business: a field has one
// line, so they become blanks, and vanish at the text's end.
class QzMaximumLengthFormatter : public QValidator {
  public:
    // In UTF-16 units.
    void SetMaximumLength(std::int32_t length) { maxLength = length; }
    std::int32_t MaximumLength() const { return maxLength; }

    // Whether an edit may leave the field with `text`, which has one line.
    virtual bool IsPartialStringValid(const QString& text) const {
        return text.size() <= maxLength;
    }
    // A part of the text as it is to be shown.
    virtual QString Folded(const QString& part) const { return part; }

    State validate(QString& proposed, int&) const final;
    // What the field is to show for a proposed text that was found valid.
    QString Replacement(const QString& proposed) const;

  private:
    std::int32_t maxLength = std::numeric_limits<std::int32_t>::max();
};

class QzUpperCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    QString Folded(const QString& part) const override {
        return rotavel::Folded(part, LetterCase::Upper);
    }
};

class QzLowerCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    QString Folded(const QString& part) const override {
        return rotavel::Folded(part, LetterCase::Lower);
    }
};

// Digits only: no sign, point or blank.
class QzNumericFormatter final : public QzMaximumLengthFormatter {
  public:
    bool IsPartialStringValid(const QString& text) const override;
};

}  // namespace rotavel
