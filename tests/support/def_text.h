// Definition files of made-up models.

#pragma once

#include <array>
#include <initializer_list>

#include "platform/string.h"

namespace korva::test {

/// One line of $Data by its columns.
struct DataRow {
  String group = u"01";
  String item = {};
  String number_label = {};
  String number = {};
  String uploaded = u"Y";
  String on_page = u"Y";
  String label = {};
  String caption = {};
  String text = {};
  String combo = {};
  String key = {};
  String frame = {};
  String unit_label = {};
  String unit = {};
  String unit_key = {};
  String temperature = {};
  String last = {};
  String preset = {};
  String rule = {};
  String condition = {};
  String unused = {};
  String prefix = {};
  String position = {};
};

/// The text of a definition file: $Data with the rows, then `sections`, then $End.
inline String DefText(std::initializer_list<DataRow> rows, StringView sections = {}) {
  String text = u"$Data\n";
  for (const DataRow& row : rows) {
    const std::array<const String*, 24> columns = {
        &row.group,  &row.item,       &row.number_label, &row.number,   &row.uploaded,    &row.on_page,
        &row.label,  &row.caption,    &row.caption,      &row.text,     &row.combo,       &row.key,
        &row.frame,  &row.unit_label, &row.unit,         &row.unit_key, &row.temperature, &row.last,
        &row.preset, &row.rule,       &row.condition,    &row.unused,   &row.prefix,      &row.position};
    for (const String* column : columns) {
      text += *column + u",";
    }
    text += u"\n";
  }
  return text.append(sections).append(u"$End\n");
}

inline constexpr StringView kTypes =
    u"$I10\n"
    u"1,Type A,0,100,10,N,Y,,deg C\n"
    u"2,Type B,0,5,1,N,Y,,V\n"
    u"3,Type C,0,10,1,Y,N,,mA\n"
    u",Type D,0,10,1,,N,,Ohm\n";

inline constexpr StringView kRanges =
    u"$I10\n"
    u"1,Plain,0,100,10,N,Y,NONE,V\n"
    u"2,Volts,0,5,1,N,Y,DCV,V\n"
    u"3,Millivolts,0,10,1,N,Y,DCMV,mV\n"
    u"4,Untitled,0,10,1,N,Y,,V\n"
    u"5,Lost,0,10,1,N,Y,MISSING,V\n"
    u"6,Beyond,0,10,1,N,Y,FOURTH,V\n"
    u"$I11\n$I11Title\nNONE,DCV,DCMV,THIRD,FOURTH\n"
    u"$I11Body\n1,v1,m1,t1\n2,v2,m2,t2\n3,v3,m3,t3\n4,v4,m4,t4\n5,v5,m5,t5\n";

inline const DataRow kTypeRow = {.item = u"10", .combo = u"0", .key = u"$I10"};
inline const DataRow kRangeRow = {.item = u"11", .combo = u"1", .key = u"$I11"};

inline constexpr StringView kUnits = u"$I21\n0,deg C,C\n1,deg F,F\n2,K,K\n";
inline const DataRow kUnitRow = {
    .item = u"21", .caption = u"単位", .key = u"$I21", .frame = u"3", .last = u"2"};

/// The input type's row with that change rule.
inline DataRow TypeRow(const String& rule) {
  DataRow row = kTypeRow;
  row.rule = rule;
  return row;
}

}  // namespace korva::test
