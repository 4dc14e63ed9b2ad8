#include "cli/program.h"
#include "platform/common/console.h"

int main(int argc, char** argv) {
  const lorelin::ConsoleText console;
  return static_cast<int>(lorelin::cli::Run(lorelin::ProgramArguments(argc, argv)));
}
