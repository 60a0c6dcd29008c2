#pragma once

#include "core/family.h"
#include "files/model_set.h"
#include "files/parameter_page.h"
#include "linearizer/csv_file.h"
#include "linearizer/lnr_family.h"
#include "monitor/monitor_family.h"
#include "monitor/output_family.h"
#include "tables/user_table_family.h"

namespace korva {

/// All that sets a family apart and is data: a value for each subsystem, which owns the type and says what it
/// means. Stands in the folder of the family's page. No member can be left out: references and OrNone have no
/// value of their own.
struct FamilyRecord {
  const Family& family;
  const DeviceTraits& device;
  /// Models whose replies are slow. The device in use is polled slowly as long as the family's page holds
  /// one, even after that page has been left.
  OrNone<ModelSet> slow_models;
  const DefinitionForm& definition;
  OrNone<FieldForm> fields;  ///< none: the family has no page yet
  const MonitorFamily& monitor;
  const OutputFamily& output;
  OrNone<LnrFamily> table;
  OrNone<CsvFamily> csv;
  OrNone<UserTableFamily> user_tables;  ///< of pages that have them in place of `table`
};

/// What a record says to its page. The family has one.
inline PageForms FormsOf(const FamilyRecord& record) {
  return {.device = record.device, .definition = record.definition, .fields = record.fields.Value()};
}

}  // namespace korva
