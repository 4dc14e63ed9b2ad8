// Spells out every line of the input: what tests/german/score measures.
#include <iostream>
#include <string>

#include "german/spokenGerman.h"

int main() {
  const lorelin::GermanSpeller speller;
  for (std::string line; std::getline(std::cin, line);) std::cout << speller.SpellOut(line).text << '\n';
  return 0;
}
