#include "app/start_up.h"

int main() {
    return rotavel::RunProgram();
}
