#pragma once

#include <string>

#include "app/motorcycle_records.h"

namespace rotavel {

// Maker and model of the motorcycle on show; both empty when its values were typed by hand.
const std::u16string& CurrentManufacturer();
const std::u16string& CurrentModel();
void SetCurrentMotorcycle(const std::u16string& manufacturer, const std::u16string& model);

// Shows both in the main window's status bar.
void ShowCurrentMotorcycle();

// The values on show are no stored motorcycle's any more: empties both texts and the status bar.
void ForgetCurrentMotorcycle();

// Makes a motorcycle the current one and puts its values into the main window.
void ChooseMotorcycle(const MotorcycleChoice& choice);

}  // namespace rotavel
