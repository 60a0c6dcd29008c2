#include "transmitter_bench.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "pages/z2_kv_config/z2_kv_config.h"

namespace korva::test {

namespace {

constexpr std::size_t kMemorySize = 8192;

}  // namespace

const std::vector<TypeChange>& TypeChanges() {
  static const std::vector<TypeChange> changes = {{.name = "Z2WT",
                                                   .model = u"Z2WT",
                                                   .input = u"TC T (CC)",
                                                   .model_text = "Z2WT-TB-S       ",
                                                   .code = 4,
                                                   .adc = 0,
                                                   .curve = SensorKind::Thermocouple},
                                                  {.name = "Z2WR",
                                                   .model = u"Z2WR",
                                                   .input = u"Ni508.4",
                                                   .model_text = "Z2WR-7B-S       ",
                                                   .code = 4,
                                                   .adc = 0,
                                                   .curve = SensorKind::Resistance,
                                                   .output_bank = 416},
                                                  {.name = "Z2WF",
                                                   .model = u"Z2WF",
                                                   .input = u"4 - 20 mA",
                                                   .model_text = "Z2WF-WB-S       ",
                                                   .code = 3,
                                                   .adc = 1,
                                                   .linearizer = true,
                                                   .copies_adc_bank = true},
                                                  {.name = "Z2WV",
                                                   .model = u"Z2WV",
                                                   .input = u"-1 - 1 V",
                                                   .model_text = "Z2WV-OB-S       ",
                                                   .code = 1,
                                                   .adc = 1,
                                                   .copies_adc_bank = true}};
  return changes;
}

TransmitterBench::TransmitterBench(const TypeChange& type_change)
    : SweepBench(type_change.model), change(type_change) {
  Deliver();
  ChangeSet();
  chosen = SetOf();
  // The question comes only where the download has got that far.
  dialogs.OnBox([this](const Box& box) {
    if (box.text == BoxOf(BoxKey::DownloadLinearizer).text) {
      dialogs.QueueAnswer(Answer::Yes);
    }
  });
}

void TransmitterBench::Deliver() {
  if (*change.delivered != '\0') {
    ASSERT_TRUE(device.Set("01", "10", change.delivered));
    Upload();
    TakeBoxes();
    Page().DataChanged = false;
    commands.clear();
  }
}

void TransmitterBench::ChangeSet() {
  auto& page = dynamic_cast<z2KvConfig&>(Page());
  Type(u"02", u"PUMP-1");
  former_input_ = page.Combo[0].Text();
  ChooseTypes();
  Type(u"17", u"0.50");
  Press(page.Opt_FiltSW, 1);
  if (change.linearizer) {
    Press(page.linearizer.Opt_Lnr, 1);
    Do([this] { FillTable(); });
  }
}

void TransmitterBench::Choose(const String& input, std::size_t output) {
  auto& page = dynamic_cast<z2KvConfig&>(Page());
  Pick(page.Combo[0], input);
  Pick(page.Combo[1], page.Combo[1].Entries().at(output));
}

void TransmitterBench::FillTable() {
  LnrTable& table = dynamic_cast<z2KvConfig&>(Page()).linearizer.Table();
  int row = 0;
  for (const StringView value : {u"0", u"25", u"100"}) {
    ++row;
    table.Store(row, 1, String(value));
    table.Store(row, 2, String(value));
  }
}

std::vector<std::string> TransmitterBench::BoxesOfDownload() {
  TakeBoxes();
  commands.clear();
  Download();
  std::vector<std::string> boxes = TakeBoxes();
  std::erase(boxes, Shown(BoxKey::StartDownload));
  std::erase(boxes, Shown(BoxKey::DownloadLinearizer));
  return boxes;
}

std::vector<std::string> TransmitterBench::Items() const {
  std::vector<std::string> items;
  for (const char* item : {"02", "12", "13", "14", "15", "16", "17", "18", "19", "20", "21", "23", "24"}) {
    const std::string value = device.Value("01", item);
    items.push_back(std::string(item) + " " + value.substr(0, value.find(' ')));  // the unit follows the type
  }
  return items;
}

void TransmitterBench::ExpectAllWritten() const {
  EXPECT_EQ(Trimmed(FromUtf8(device.Value("01", "02"))), u"PUMP-1");
  EXPECT_EQ(device.Value("01", "16"), "ON");
  EXPECT_TRUE(device.Value("01", "17").starts_with("0.50")) << device.Value("01", "17");
  EXPECT_EQ(device.Value("01", "10"), ToUtf8(change.input));
  EXPECT_EQ(device.Value("01", "11"), "1-5 V");
  ExpectTypes();
  ExpectCalibration();
  ExpectTable();
}

void TransmitterBench::ExpectTypes() const {
  const auto padded = [](std::string text) {
    text.resize(16, ' ');
    return text;
  };
  EXPECT_EQ(Bytes(48, 16), change.model_text);
  const Date today = loop.Today();
  const auto year = static_cast<int>(today.year());
  EXPECT_EQ(Number(74, 2), year);
  EXPECT_EQ(Number(73, 1), static_cast<int>(static_cast<unsigned>(today.month())));
  EXPECT_EQ(Number(72, 1), static_cast<int>(static_cast<unsigned>(today.day())));
  EXPECT_EQ(Number(77, 1), change.adc);
  EXPECT_EQ(Number(78, 1), change.code);
  EXPECT_EQ(Number(79, 1), 1);
  EXPECT_EQ(Bytes(80, 16), padded(ToUtf8(change.input)));
  EXPECT_EQ(Bytes(96, 16), padded("1-5 V"));
}

// The active values are those of the type's bank, and each difference is that of the two beside it.
void TransmitterBench::ExpectCalibration() const {
  if (change.copies_adc_bank) {
    const std::size_t bank = 237 + 16 * static_cast<std::size_t>(change.adc);
    ExpectCopied(bank, 2 + 2 + 3 + 3, 193);
    ExpectCopied(bank + 10, 3 + 3, 206);
    ExpectDifference(197, 200, 3, 203);
    ExpectDifference(206, 209, 3, 212);
  }
  const std::size_t active = change.output_bank;
  const std::size_t bank = active + 24 + 16;  // the second of the three banks behind the active values
  ExpectCopied(bank, 2 + 2, active);
  ExpectCopied(bank + 4, 3 + 3, active + 6);
  ExpectCopied(bank + 10, 3 + 3, active + 15);
  ExpectDifference(active, active + 2, 2, active + 4);
  ExpectDifference(active + 6, active + 9, 3, active + 12);
  ExpectDifference(active + 15, active + 18, 3, active + 21);
}

void TransmitterBench::ExpectCopied(std::size_t from, std::size_t count, std::size_t to) const {
  EXPECT_TRUE(Bytes(to, count) == Bytes(from, count)) << to << " from " << from;
}

void TransmitterBench::ExpectDifference(std::size_t first, std::size_t second, std::size_t width,
                                        std::size_t at) const {
  const unsigned mask = (1U << (8 * width)) - 1;
  const auto difference = static_cast<unsigned>(Number(first, width) - Number(second, width)) & mask;
  EXPECT_EQ(static_cast<unsigned>(Number(at, width)), difference) << at;
}

void TransmitterBench::ExpectTable() const {
  if (change.curve) {
    const std::string image = ImageOfFile();
    EXPECT_EQ(Number(513, 1), change.code);
    EXPECT_EQ(static_cast<std::size_t>(Number(520, 2)), kMemorySize - image.size());
    EXPECT_TRUE(Bytes(kMemorySize - image.size(), image.size()) == image) << "the curve of the file";
  }
  if (change.linearizer) {
    EXPECT_EQ(Number(513, 1), 101);
    EXPECT_EQ(Number(520, 2), 8192 - 18);
    // 0, 25 and 100 %, X and Y each, times 32768, in three bytes with the low one first.
    EXPECT_EQ(Bytes(8192 - 18, 18), std::string("\0\0\0\0\0\0\0\x80\x0C\0\x80\x0C\0\0\x32\0\0\x32", 18));
  }
}

int TransmitterBench::Number(std::size_t address, std::size_t width) const {
  int number = 0;
  std::string bytes = Bytes(address, width);
  std::reverse(bytes.begin(), bytes.end());
  for (const char byte : bytes) {
    number = number * 256 + static_cast<unsigned char>(byte);
  }
  return number;
}

std::string TransmitterBench::ImageOfFile() const {
  const CurveFile& file = CurveFiles(*change.curve)[static_cast<std::size_t>(change.code)];
  const std::string bytes = files.Bytes(u"/korva/system/z2Kv/" + String(file.name)).value();
  std::string image;
  for (std::size_t value = 0; value < static_cast<std::size_t>(file.points); ++value) {
    image += bytes.substr(4 * value, 3);
  }
  return image;
}

}  // namespace korva::test
