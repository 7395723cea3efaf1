#include <map>

#include <QAccessible>

#include "app/default_settings.h"
#include "app_test.h"
#include "gui/window.h"

namespace rotavel {
namespace {

using namespace tests;

std::string TextOf(QObject* object, QAccessible::Text part) {
    return QAccessible::queryAccessibleInterface(object)->text(part).toStdString();
}

// All below an object, as a screen reader walks it: "role name", a line each.
void Dump(QAccessibleInterface* object, std::string& dump) {
    static const std::map<QAccessible::Role, const char*> names = {
        {QAccessible::Window, "window"},    {QAccessible::StatusBar, "status bar"},
        {QAccessible::StaticText, "label"}, {QAccessible::EditableText, "field"},
        {QAccessible::ComboBox, "choice"},  {QAccessible::PushButton, "button"},
        {QAccessible::Graphic, "picture"}};
    const auto name = names.find(object->role());
    if (name != names.end()) {
        dump +=
            std::string(name->second) + " " + object->text(QAccessible::Name).toStdString() + "\n";
    }
    const bool isLeaf = object->role() == QAccessible::ComboBox;
    for (int child = 0; !isLeaf && child < object->childCount(); ++child) {
        Dump(object->child(child), dump);
    }
}

std::string DumpOf(QWidget& widget) {
    std::string dump;
    Dump(QAccessible::queryAccessibleInterface(&widget), dump);
    return dump;
}

class ScreenReaderTest : public AppTest {
  protected:
    void SetUp() override { Start(FiveSpeed); }
};

TEST_F(ScreenReaderTest, EveryControlHasARoleAndANameOfItsOwn) {
    const std::string dump = DumpOf(*View(RpmField)->window());
    EXPECT_EQ(dump.substr(0, dump.find('\n')),
              "window Rotavel V1.55 \u00A9 2026 The Rotavel authors");
    for (const char* const line :
         {"label Rear wheel", "field Rear tyre, width", "choice Unit of speed",
          "field First gear, teeth of the driving wheel", "field Sixth gear, ratio",
          "field Road speed in third gear", "button Calculate the engine speed for third gear",
          "button Calculate the road speed in every gear", "status bar ", "label Moto - Old"}) {
        EXPECT_NE(dump.find(std::string("\n") + line + "\n"), std::string::npos) << line;
    }
    std::map<std::string, std::int64_t> names;
    for (std::int64_t number = 0; number <= GraphicButton; ++number) {
        QWidget* const view = View(number);
        if (view != nullptr && qobject_cast<QLabel*>(view) == nullptr) {
            const std::string name = TextOf(view, QAccessible::Name);
            EXPECT_NE(name, "") << number;
            EXPECT_TRUE(names.emplace(name, number).second) << name;
            EXPECT_EQ(view->toolTip().toStdString(), "<qt>" + name + "</qt>");
            EXPECT_EQ(TextOf(view, QAccessible::Description), name);
        }
    }
}

TEST_F(ScreenReaderTest, ResultsAreReadWhereTheyStand) {
    SetGadgetText(RpmField, u"4000");
    Push(CalcSpeedButton);
    EXPECT_EQ(TextOf(View(GearSpeedField), QAccessible::Value),
              ToUtf8(GetGadgetText(GearSpeedField)));
    EXPECT_EQ(TextOf(View(SpeedUnitBox), QAccessible::Value), "km/h");
    Push(GraphicButton);
    Press(Qt::Key_Right);
    Run();
    const std::string dump = DumpOf(*View(63)->window());
    EXPECT_NE(dump.find("\npicture Chart of road speed"), std::string::npos) << dump;
    EXPECT_NE(dump.find("\nlabel " + ToUtf8(StatusText(63, 1)) + "\n"), std::string::npos) << dump;
    AskToClose(1);
    Run();
}

}  // namespace
}  // namespace rotavel
