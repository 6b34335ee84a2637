#include "tests/output/scripted_output_screen.h"

#include "output/validation.h"

namespace orvane::test {

void ScriptedOutputScreen::ShowExportErrors() {
  ErrorLists.emplace_back(ExportErrors.begin(), ExportErrors.end());
}

bool ScriptedOutputScreen::GoesOn(int done, int count) {
  Steps.emplace_back(done, count);
  return done != CalledOffAfter;
}

}  // namespace orvane::test
