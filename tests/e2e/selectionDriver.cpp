#include <iostream>

#include "platform/linux/AtspiSelectedText.h"

// Prints what is selected in the program in front.
int main() {
  std::cout << lorelin::AtspiSelectedText().Text() << '\n';
}
