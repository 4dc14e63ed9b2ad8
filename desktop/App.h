#pragma once

#include <wx/app.h>

#include <memory>
#include <string>
#include <vector>

namespace lorelin {

// The window program: makes the adapters, the modules and the main window, and starts them.
class App final : public wxApp {
 public:
  // The arguments as the system passes them, the program's name left out.
  explicit App(std::vector<std::string> arguments);
  ~App() override;

  bool Initialize(int& argc, wxChar** argv) override;
  bool OnInit() override;
  int OnRun() override;
  int OnExit() override;

 private:
  class Program;

  std::vector<std::string> arguments_;
  std::unique_ptr<Program> program_;
};

}  // namespace lorelin
