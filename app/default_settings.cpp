#include "app/default_settings.h"

#include <array>
#include <cstddef>

#include "app/default_motorcycle_table.h"
#include "app/settings_keys.h"

namespace rotavel {

namespace {

// Keys in the order of DefaultMotorcycle::Values, which is that of the file.
constexpr std::array MotorcycleKeys = {
    RearWheelWidthKey, RearWheelPercentHeightKey, RearWheelDiameterKey, PrimaryRatioKey,
    GearRatioKeys[0],  GearRatioKeys[1],          GearRatioKeys[2],     GearRatioKeys[3],
    GearRatioKeys[4],  GearRatioKeys[5],          FinalDriveRatioKey,   MaxRpmKey,
};

struct TextBuilder {
    std::array<char, 17404> Bytes{};
    std::size_t Length = 0;

    constexpr void Append(char byte) { Bytes[Length++] = byte; }

    constexpr void Append(std::string_view text) {
        for (const char byte : text) {
            Append(byte);
        }
    }

    constexpr void Append(std::u16string_view ascii) {
        for (const char16_t unit : ascii) {
            Append(static_cast<char>(unit));
        }
    }

    constexpr void AppendLine(std::u16string_view key, std::string_view rest) {
        Append(key);
        Append(rest);
        Append("\r\n");
    }

    constexpr void AppendLastValues() {
        Append("[");
        Append(LastValuesGroup);
        Append("]\r\n");
        AppendLine(ManufacturerKey, " = ");
        AppendLine(ModelKey, " = ");
        for (const std::u16string_view key : MotorcycleKeys) {
            // The one key that its authors left without a blank.
            AppendLine(key, key == FinalDriveRatioKey ? " =" : " = ");
        }
        AppendLine(SpeedTypeKey, " = km/h");
    }

    constexpr void AppendMotorcycle(const DefaultMotorcycle& motorcycle) {
        Append("\r\n[");
        Append(motorcycle.Group);
        Append("]\r\n");

        std::string_view rest = motorcycle.Values;
        for (const std::u16string_view key : MotorcycleKeys) {
            rest.remove_prefix(rest.find_first_not_of(' '));
            const std::string_view value = rest.substr(0, rest.find(' '));
            rest.remove_prefix(value.size());
            AppendKey(key, value);
        }
    }

    constexpr void AppendKey(std::u16string_view key, std::string_view value) {
        Append(key);
        Append(" = ");
        for (const char mark : value) {
            if (mark != '-') {
                Append(mark == '_' ? ' ' : mark);
            }
        }
        Append("\r\n");
    }
};

constexpr TextBuilder BuildText() {
    TextBuilder text;
    text.AppendLastValues();
    for (const DefaultMotorcycle& motorcycle : DefaultMotorcycles) {
        text.AppendMotorcycle(motorcycle);
    }
    return text;
}

constexpr TextBuilder Text = BuildText();
static_assert(Text.Length == Text.Bytes.size());

}  // namespace

constinit const std::string_view DefaultSettingsText{Text.Bytes.data(), Text.Bytes.size()};

}  // namespace rotavel
