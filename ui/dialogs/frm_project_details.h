// "Project Details": the five texts and the date of the project. The fields are the user's door to
// txtProject and DTPicker1; typing takes effect at once.
#pragma once

#include <QDateEdit>
#include <array>
#include <cstddef>

#include "ui/controls/plain_field.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// Made once at the start and kept; "&Close" hides it.
class FrmProjectDetails : public PlainDialog {
 public:
  // A date before 01/01/2002 is one never set: it becomes today, here and nowhere else.
  explicit FrmProjectDetails(QWidget* parent = nullptr);

  // Brings the model's texts and date into the fields, without counting as typing.
  void Refresh();
  // The next time it is shown the cursor comes to txtProject(`index`) instead of the first field.
  void BeginAt(int index) { firstField_ = static_cast<std::size_t>(index); }

  // A year half typed is completed before it closes.
  void done(int result) override;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddFields();
  void AddPicker();
  bool PickerKey(const QKeyEvent& key);
  void GoToPart(int index);
  void CompleteYear();

  // Digits typed into that part of the date.
  QString typed_;
  QDateTimeEdit::Section section_ = QDateTimeEdit::NoSection;

  static constexpr std::size_t FirstField = 1;
  std::size_t firstField_ = FirstField;
  std::array<PlainField*, 5> txtProject_{};
  QDateEdit* picker_ = nullptr;
};

}  // namespace orvane
