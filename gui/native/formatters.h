#pragma once

#include <cstdint>
#include <limits>

#include <QValidator>

namespace rotavel {

// The formatter of a string field judges every edit of the user's by the whole text that the field
// would then hold, and may put another text in its place. This one limits the length.
class QzMaximumLengthFormatter : public QValidator {
  public:
    // In UTF-16 units.
    void SetMaximumLength(std::int32_t length) { maxLength = length; }
    std::int32_t MaximumLength() const { return maxLength; }

    // Whether an edit may leave the field with `text`, which may be replaced.
    virtual bool IsPartialStringValid(QString& text) const { return text.size() <= maxLength; }

    State validate(QString& text, int&) const final {
        return IsPartialStringValid(text) ? Acceptable : Invalid;
    }

  private:
    std::int32_t maxLength = std::numeric_limits<std::int32_t>::max();
};

class QzUpperCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    bool IsPartialStringValid(QString& text) const override;
};

class QzLowerCaseFormatter final : public QzMaximumLengthFormatter {
  public:
    bool IsPartialStringValid(QString& text) const override;
};

// Digits only: no sign, point or blank.
class QzNumericFormatter final : public QzMaximumLengthFormatter {
  public:
    bool IsPartialStringValid(QString& text) const override;
};

}  // namespace rotavel
