#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "page_host.h"

namespace korva::test {

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

/// Builds the page of a made-up model from a definition and a set.
class PageBuilder : public testing::Test {
 protected:
  /// Chooses a model with the definition; what the set holds of items of group 1 was put there before.
  TestPage& Show(StringView definition, const String& model = u"OTHER") {
    TestPage& page = host.Choose(model, definition);
    page.BuildPage();
    return page;
  }
  TestPage& ShowWith(int item, const String& value, StringView definition, const String& model = u"OTHER") {
    host.Choose(model, definition);
    host.Page().SetItem(item, value);
    host.Page().BuildPage();
    return host.Page();
  }
  static DataRow TypeRow(const String& rule) {
    DataRow row = kTypeRow;
    row.rule = rule;
    return row;
  }

  PageHost host;
};

}  // namespace korva::test
