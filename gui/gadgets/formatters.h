#pragma once

#include <cstdint>
#include <limits>

#include <QValidator>

namespace rotavel {

// The formatter of a string field judges every edit of the user's by the whole text that the field
// would then hold, and may put another text in its place. This one limits the length. Line ends,
// which a paste can bring along, are none of the formatters' business: a field has one line, so
// they become blanks, and vanish at the text's end.
class QzMaximumLengthFormatter : public QValidator {
  public:
    // In UTF-16 units.
    void SetMaximumLength(std::int32_t length) { maxLength = length; }
    std::int32_t MaximumLength() const { return maxLength; }

    // Whether an edit may leave the field with `text`.
    virtual bool IsPartialStringValid(const QString& text) const {
        return text.size() <= maxLength;
    }
    // What the field then shows.
    virtual QString Replacement(const QString& text) const { return text; }

    State validate(QString& text, int& cursor) const final;

  private:
    std::int32_t maxLength = std::numeric_limits<std::int32_t>::max();
};

class QzUpperCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    QString Replacement(const QString& text) const override { return text.toUpper(); }
};

class QzLowerCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    QString Replacement(const QString& text) const override { return text.toLower(); }
};

// Digits only: no sign, point or blank.
class QzNumericFormatter final : public QzMaximumLengthFormatter {
  public:
    bool IsPartialStringValid(const QString& text) const override;
};

}  // namespace rotavel
