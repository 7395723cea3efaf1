#include "app/default_settings.h"

#include <array>
#include <cstddef>

namespace rotavel {

namespace {

// The file is kept to the byte as its authors typed it: here the one key without a blank after its
// "=", below the trailing blanks and the decimals of every number.
constexpr std::string_view SettingsGroup =
    "[Settings]\r\n"
    "Manufacturer = \r\n"
    "Modell = \r\n"
    "RearWheelWidth = \r\n"
    "RearWheelPercentHeight = \r\n"
    "RearWheelDiameter = \r\n"
    "PrimaryRatio = \r\n"
    "Gear1Ratio = \r\n"
    "Gear2Ratio = \r\n"
    "Gear3Ratio = \r\n"
    "Gear4Ratio = \r\n"
    "Gear5Ratio = \r\n"
    "Gear6Ratio = \r\n"
    "FinalDriveRatio =\r\n"
    "MaxRPM = \r\n"
    "SpeedType = km/h\r\n";

constexpr std::array<std::string_view, 12> MotorcycleKeys = {
    "RearWheelWidth",    "RearWheelPercentHeight",
    "RearWheelDiameter", "PrimaryRatio",
    "Gear1Ratio",        "Gear2Ratio",
    "Gear3Ratio",        "Gear4Ratio",
    "Gear5Ratio",        "Gear6Ratio",
    "FinalDriveRatio",   "MaxRPM",
};

struct MotorcycleRow {
    std::string_view Group;   // the blank at the end of two of them stands before the "]"
    std::string_view Values;  // one for each of MotorcycleKeys, separated by blanks
};

// In Values "_" is a blank after the value and "-" is nothing: "0.8__" is 0.8 and two blanks, "-_"
// a lone blank.
// clang-format off
constexpr MotorcycleRow Motorcycles[] = {
//    width %  rim primary gear 1  gear 2  gear 3 gear 4  gear 5  gear 6  final  max rpm
    {"Moto Guzzi - 1200 Sport",
     "180  55_ 17 1.4583_ 2.2353_ 1.7000_ 1.3478 1.1154_ 0.9355_ 0.8000_ 3.6667 8750"},
    {"Moto Guzzi - Bellagio",
     "180  55  17 1.4583  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621  3.6667 8750"},
    {"Moto Guzzi - Breva 750",
     "130  80  17 1.3125  2.3636  1.6429  1.2778 1.0556  0.9000  -_      4.125  8750"},
    {"Moto Guzzi - Breva 850",
     "180  55  17 1.5652  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - Breva 1100",
     "180  55  17 1.3461  2.2353  1.7000  1.3478 1.1154  0.9677  0.8000_ 3.6667 8750"},
    {"Moto Guzzi - Breva 1200",
     "180  55  17 1.4583  2.2353  1.7000  1.3478 1.1154  0.9355  0.8000_ 3.6667 8750"},
    {"Moto Guzzi - California III early",
     "110  80  18 1.2353  2.0000  1.3889  1.0476 0.8696  0.7500  -_      5.3333 8750"},
    {"Moto Guzzi - California -2000 EV-Special-Jackal-Vintage",
     "140  80  17 1.2353  2.0000  1.3889  1.0476 0.8696  0.7500  -_      4.1250 8750"},
    {"Moto Guzzi - California 2001 EV",
     "150  70  17 1.2353  2.0000  1.3889  1.0476 0.8696  0.7500  -_      4.1250 8750"},
    {"Moto Guzzi - California 1400",
     "200  60  16 1.346   2.235   1.7     1.347  1.115   0.967   0.8__   3.6    7000"},
    {"Moto Guzzi - Daytona",
     "160  60  18 1.3461  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621  3.6667 8750"},
    {"Moto Guzzi - Daytona RS",
     "160  60  17 1.3529  1.8125  1.2500  1.0000 0.8333  0.7308  -       4.125  8750"},
    {"Moto Guzzi - Griso 850",
     "180  55  17 0.6389  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - Griso 1100",
     "180  55  17 1.4583  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - Griso 1200",
     "180  55  17 1.3460  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - Le Mans I",
     "110  90  18 1.2353  2.0000  1.3888  1.0476 0.8696  0.7500  -       4.7143 8750"},
    {"Moto Guzzi - Le Mans II",
     "110  90  18 1.2353  2.0000  1.3888  1.0476 0.8696  0.7500  -       4.7143 8750"},
    {"Moto Guzzi - Le Mans III",
     "110  90  18 1.2353  2.0000  1.3888  1.0476 0.8696  0.7500  -       4.7143 8750"},
    {"Moto Guzzi - MGS01",
     "180  55  17 1.5500  2.4000  1.7778  1.3636 1.1111  0.9655  0.8519_ 2.9091 8750"},
    {"Moto Guzzi - Norge 1200 early",
     "180  55  17 1.4583  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - Norge 1200 late",
     "180  55  17 1.4583  2.2353  1.7000  1.3478 1.1154  0.9355  0.8000_ 3.6667 8750"},
    {"Moto Guzzi - Quota 1100 ES",
     "130  80  17 1.3529  2.0000  1.3158  1.0000 0.8462  0.7308  -       4.125  8750"},
    {"Moto Guzzi - Sport 1100 i",
     "160  60  17 1.3529  1.8125  1.2500  1.0000 0.8333  0.7308  -       4.125  8750"},
    {"Moto Guzzi - Stelvio",
     "180  55  17 1.3462  2.2353  1.7000  1.3478 1.1154  0.9677  0.8621_ 3.6667 8750"},
    {"Moto Guzzi - V7",
     "130  80  17 1.3125  2.3636  1.6429  1.2778 1.0556  0.9000  -       4.125  7500"},
    {"Moto Guzzi - V7 II",
     "130  80  17 1.2778  2.6429  1.7778  1.3333 1.0833  0.9600  0.8889  4.125  7500"},
    {"Moto Guzzi - V7 III",
     "130  80  17 1.2778  2.4375  1.7778  1.3333 1.0833  0.9600  0.8571  4.125  7500"},
    {"Moto Guzzi - V7 850",
     "150  70  17 1.2778  2.4375  1.7778  1.3333 1.0833  0.9600  0.8889  4.125  7500"},
    {"Moto Guzzi - V9",
     "150  80  16 1.1905  2.4375  1.7778  1.3333 1.0833  0.9600  0.8571  4.125  7500"},
    {"Moto Guzzi - V10 Centauro",
     "160  60  17 1.3529  2.0000  1.3158  1.0000 0.8462  0.7692  -       4.125  8750"},
    {"Moto Guzzi - V10 Centauro CH",
     "160  60  17 1.2353  2.0000  1.3889  1.0476 0.8696  0.7500  -       4.125  8750"},
    {"Moto Guzzi - V11 170/60-17",
     "170  60  17 1.6842  2.4000  1.7778  1.3636 1.1111  0.9655  0.8519  2.9091 8750"},
    {"Moto Guzzi - V11 180/55-17",
     "180  55  17 1.6842  2.4000  1.7778  1.3636 1.1111  0.9655  0.8519  2.9091 8750"},
    {"Moto Guzzi - V35",
     "3.25 0   18 1.846   2.727_  1.733_  1.277  1.045   0.909   0.0000  3.875  8000"},
    {"Moto Guzzi - V35TT",
     "3.25 0   18 2.000   2.727_  1.733_  1.277  1.045   0.909   0.0000  3.875  8000"},
    {"Moto Guzzi - V50",
     "3.50 0   18 1.642   2.727_  1.733_  1.277  1.045   0.909   0.0000  3.875  8000"},
    {"Moto Guzzi - V65",
     "110  90  18 1.466   2.3636_ 1.6428_ 1.2777 1.0555  0.9000  0.0000  3.875  8000"},
    {"Moto Guzzi - V65 Lario",
     "110  90  18 1.313   2.3636_ 1.6428_ 1.2777 1.0555  0.9000  0.0000  3.875  8000"},
    {"Moto Guzzi - V85TT",
     "150  70  17 1.2778  2.4375  1.7778  1.3333 1.0833  0.9600  0.8889  4.125  7500"},
    {"Aprilia - RSV4 Factory",
     "200  55  17 1.6591  2.3750  1.9444  1.6471 1.4545  1.3077  1.2222  2.6250 14000"},
    {"BMW - HP4 Race",
     "200  60  17 1.6522  2.3889  2.0000  1.7273 1.5455  1.4000  1.2917  2.6875 14500"},
    {"BMW - S 1000 RR",
     "200  55  17 1.652   2.647   2.091   1.727  1.500   1.360   1.261   2.6247 14000"},
    {"MV Agusta - Brutale 1090RR 2010",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.211   2.733  13500"},
    {"MV Agusta - Brutale 989 / 1078",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.211   2.733  12000"},
    {"MV Agusta - Brutale 990 ET 1090",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.211   2.733  13500"},
    {"MV Agusta - Brutale 1090RR Y12 + CORSA",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.211   2.866  13500"},
    {"MV Agusta - Brutale 920 ",
     "180  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.211   2.666  13500"},
    {"MV Agusta - Brutale 910",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.19    2.866  12000"},
    {"MV Agusta - B4 750",
     "190  55  17 1.72    2.92    2.21    1.78   1.5     1.32    1.21    2.928  12000"},
    {"MV Agusta - F4 1000 Y04 + AGO + SENNA",
     "190  55  17 1.58    2.92    2.12    1.78   1.5     1.32    1.19    2.666  14000"},
    {"MV Agusta - F4 1000 Y05 + TAMBURINI",
     "190  55  17 1.58    2.923   2.125   1.778  1.5     1.318   1.19    2.666  14000"},
    {"MV Agusta - F4 312 / 1000 / 1078 Y08 ",
     "190  55  17 1.58    2.923   2.06    1.778  1.5     1.318   1.19    2.666  14000"},
    {"MV Agusta - F4S Y10",
     "190  55  17 1.58    2.64    2.06    1.72   1.5     1.318   1.19    2.733  15000"},
    {"MV Agusta - F4 Y10",
     "190  55  17 1.71    2.643   2.062   1.722  1.5     1.318   1.19    2.733  15000"},
    {"MV Agusta - B3 800/ DRAGSTER / RIVALE <Y16",
     "190  55  17 1.89    2.846   2.125   1.778  1.579   1.429   1.318   2.562  13000"},
    {"MV Agusta - DRAGSTER RR",
     "200  55  17 1.89    2.846   2.125   1.778  1.579   1.429   1.318   2.562  14000"},
    {"MV Agusta - TURISMO VELOCE",
     "190  55  17 1.89    2.846   2.188   1.778  1.5     1.318   1.19    2.562  13000"},
    {"MV Agusta - B3 675 <Y16",
     "180  55  17 1.89    2.846   2.125   1.778  1.579   1.429   1.318   2.687  13000"},
    {"MV Agusta - F3 675 / 800",
     "190  55  17 1.89    2.846   2.125   1.778  1.579   1.429   1.318   2.687  15000"},
};
// clang-format on

struct TextBuilder {
    std::array<char, 17404> Bytes{};
    std::size_t Length = 0;

    constexpr void Append(char byte) { Bytes[Length++] = byte; }

    constexpr void Append(std::string_view text) {
        for (const char byte : text) {
            Append(byte);
        }
    }

    constexpr void AppendMotorcycle(const MotorcycleRow& motorcycle) {
        Append("\r\n[");
        Append(motorcycle.Group);
        Append("]\r\n");

        std::string_view rest = motorcycle.Values;
        for (const std::string_view key : MotorcycleKeys) {
            rest.remove_prefix(rest.find_first_not_of(' '));
            const std::string_view value = rest.substr(0, rest.find(' '));
            rest.remove_prefix(value.size());
            AppendKey(key, value);
        }
    }

    constexpr void AppendKey(std::string_view key, std::string_view value) {
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
    text.Append(SettingsGroup);
    for (const MotorcycleRow& motorcycle : Motorcycles) {
        text.AppendMotorcycle(motorcycle);
    }
    return text;
}

constexpr TextBuilder Text = BuildText();
static_assert(Text.Length == Text.Bytes.size());

}  // namespace

constinit const std::string_view DefaultSettingsText{Text.Bytes.data(), Text.Bytes.size()};

}  // namespace rotavel
