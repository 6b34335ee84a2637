// "Change chosen sections": values that all of the chosen sections get.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/pasted_text.h"
#include "core/table.h"
#include "project/section_list/chosen_change.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

class FrmChange : public PlainDialog {
 public:
  // For so many sections. Products and patterns are those of the family with that letter.
  FrmChange(int sections, const std::string& letter, QWidget* parent = nullptr);

  // What was chosen, once the dialog was accepted; nothing where no line is ticked.
  const ChosenChange& Chosen() const { return chosen_; }

 protected:
  bool HasChanges() override;

 private:
  QCheckBox* AddLine(const QString& name, const QString& caption,
                     const std::vector<QWidget*>& controls);
  PlainCombo* NewList(const QString& name, const QString& reads, const Table<std::string>& entries);
  PlainField* NewField(const QString& name, const QString& reads);
  QCheckBox& BoxOf(std::size_t line) const;
  void FollowWays();
  void Accept();
  std::optional<std::string> EntryOf(QCheckBox& box, PlainCombo& list);
  std::optional<std::string> NumberOf(QCheckBox& box, PlainField& field, NumberForm form);

  QGridLayout* lines_ = new QGridLayout;
  std::vector<QCheckBox*> boxes_;
  PlainCombo* cboProduct_;
  PlainCombo* cboPattern_;
  PlainCombo* cboSagBars_;
  PlainCombo* cboPitch_;
  PlainCombo* cboLengthBy_;
  PlainCombo* cboNotesBy_;
  PlainField* txtLength_;
  PlainField* txtQty_;
  PlainField* txtNotesFrom_;
  PlainField* txtNotes_;

  QWidget* wrong_ = nullptr;  // the first field that can't be taken
  ChosenChange chosen_;
};

}  // namespace orvane
