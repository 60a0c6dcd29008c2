// The user guide in its two languages: who reads one finds each thing at the same place of the other, and
// both name what the program has.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "document.h"
#include "family_facts.h"
#include "models.h"

namespace {

const std::string kSourceFolder = KORVA_SOURCES;
const std::string kDocuments = kSourceFolder + "/docs/";

const Document& EnglishGuide() {
  static const Document guide = ReadDocument(kDocuments + "user-guide.md");
  return guide;
}
const Document& JapaneseGuide() {
  static const Document guide = ReadDocument(kDocuments + "user-guide.ja.md");
  return guide;
}
const std::vector<const Document*>& Guides() {
  static const std::vector<const Document*> guides = {&EnglishGuide(), &JapaneseGuide()};
  return guides;
}

std::string TextOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string TextOf(const Document& document) { return TextOf(std::filesystem::path(document.path)); }

std::string PlaceOf(const Document& document, const DocumentBlock& block) {
  return std::filesystem::path(document.path).filename().string() + ":" + std::to_string(block.line) + ": ";
}

/// What both languages call the same: `messages.ja.md` is `messages.md`.
std::string WithoutLanguage(std::string file) {
  const std::size_t mark = file.find(".ja.md");
  return mark == std::string::npos ? file : file.replace(mark, 6, ".md");
}

/// The number of the heading to which an anchor leads, from 0; -1 when there is none.
int HeadingNumber(const Document& document, const std::string& anchor) {
  const std::vector<std::string> anchors = AnchorsOf(document);
  const auto found = std::find(anchors.begin(), anchors.end(), anchor);
  return found == anchors.end() ? -1 : static_cast<int>(found - anchors.begin());
}

/// A link in a form that is the same in both languages: the file, and the number of the heading.
std::string Resolved(const Document& document, const std::string& link) {
  const std::size_t sign = std::min(link.find('#'), link.size());
  const std::string name = link.substr(0, sign);
  const std::string path = name.empty() ? document.path : kDocuments + name;
  EXPECT_TRUE(std::filesystem::is_regular_file(path)) << document.path << ": " << link;
  if (sign == link.size()) {
    return WithoutLanguage(name);
  }
  const int heading = HeadingNumber(ReadDocument(path), link.substr(sign + 1));
  EXPECT_GE(heading, 0) << document.path << ": " << link;
  return WithoutLanguage(name) + "#" + std::to_string(heading);
}

std::multiset<std::string> PlacesIn(const Document& document, const std::string& text) {
  std::multiset<std::string> places;
  for (const std::string& link : LinksIn(text)) {
    places.insert(Resolved(document, link));
  }
  return places;
}

TEST(UserGuide, HasTheSameHeadingsListsTablesCodeAndPicturesInBothLanguages) {
  const auto& english = EnglishGuide().blocks;
  const auto& japanese = JapaneseGuide().blocks;
  ASSERT_FALSE(english.empty());
  for (std::size_t at = 0; at < std::min(english.size(), japanese.size()); ++at) {
    ASSERT_EQ(english[at].form, japanese[at].form)
        << PlaceOf(EnglishGuide(), english[at]) << english[at].text << "\n"
        << PlaceOf(JapaneseGuide(), japanese[at]) << japanese[at].text;
  }
  EXPECT_EQ(english.size(), japanese.size());
}

TEST(UserGuide, NumbersItsChaptersOneByOne) {
  for (const Document* guide : Guides()) {
    int number = 0;
    for (const DocumentBlock& block : guide->blocks) {
      const std::string expected = "heading 2, " + std::to_string(number + 1) + ".";
      if (block.form.starts_with("heading 2, ") && block.form != "heading 2, ") {
        EXPECT_EQ(block.form, expected) << PlaceOf(*guide, block) << block.text;
        ++number;
      }
    }
    EXPECT_GT(number, 0) << guide->path;
  }
}

TEST(UserGuide, ShowsEachPictureThatThereIs) {
  std::set<std::string> there;
  for (const auto& file : std::filesystem::directory_iterator(kDocuments + "images")) {
    there.insert("picture images/" + file.path().filename().string());
  }
  there.erase("picture images/made-with.txt");  // tells how they were taken
  for (const Document* guide : Guides()) {
    std::set<std::string> shown;
    for (const DocumentBlock& block : guide->blocks) {
      if (block.form.starts_with("picture ")) {
        shown.insert(block.form);
      }
    }
    EXPECT_EQ(shown, there) << guide->path;
  }
}

TEST(UserGuide, LeadsToTheSamePlacesInBothLanguages) {
  const auto english = SectionsOf(EnglishGuide());
  const auto japanese = SectionsOf(JapaneseGuide());
  ASSERT_EQ(english.size(), japanese.size());
  for (std::size_t at = 0; at < english.size(); ++at) {
    EXPECT_EQ(PlacesIn(EnglishGuide(), english[at].text), PlacesIn(JapaneseGuide(), japanese[at].text))
        << english[at].heading << "\n"
        << japanese[at].heading;
  }
  for (const Document* guide : Guides()) {
    const std::vector<std::string> anchors = AnchorsOf(*guide);
    EXPECT_EQ(std::set<std::string>(anchors.begin(), anchors.end()).size(), anchors.size())
        << guide->path << ": two headings are called alike";
  }
}

TEST(UserGuide, IsLedToByHeadingsThatThereAre) {
  std::vector<std::filesystem::path> pages = {kSourceFolder + "/README.md"};
  for (const auto& file : std::filesystem::directory_iterator(kDocuments)) {
    pages.push_back(file.path());
  }
  std::set<std::string> linking;
  for (const std::filesystem::path& page : pages) {
    for (const std::string& link :
         page.extension() == ".md" ? LinksIn(TextOf(page)) : std::vector<std::string>()) {
      const std::size_t name = link.find("user-guide");
      if (name != std::string::npos) {
        Resolved(EnglishGuide(), link.substr(name));
        linking.insert(page.filename().string() + " " + link.substr(name, link.find('#') - name));
      }
    }
  }
  for (const char* both : {"README.md user-guide.md", "README.md user-guide.ja.md",
                           "user-guide.md user-guide.ja.md", "user-guide.ja.md user-guide.md"}) {
    EXPECT_TRUE(linking.contains(both)) << both;
  }
}

TEST(UserGuide, TellsTheSameCaptionsAndNumbersInEachChapterOfBothLanguages) {
  const auto english = SectionsOf(EnglishGuide());
  const auto japanese = SectionsOf(JapaneseGuide());
  ASSERT_EQ(english.size(), japanese.size());
  for (std::size_t at = 0; at < english.size(); ++at) {
    for (const std::string& caption : JapaneseIn(english[at].text, false)) {
      EXPECT_NE(japanese[at].text.find(caption), std::string::npos)
          << japanese[at].heading << ": " << caption;
    }
    // The Japanese guide has digits where the English one has a word, so it may have more.
    const std::set<std::string> numbers = NumbersIn(japanese[at].text);
    for (const std::string& number : NumbersIn(english[at].text)) {
      EXPECT_TRUE(numbers.contains(number)) << japanese[at].heading << ": " << number;
    }
  }
}

/// Keys as the guide writes them, such as `Ctrl+Shift+Z`.
std::set<std::string> KeysIn(const std::string& text) {
  const std::regex key("(Ctrl|Alt|Shift)(\\+[A-Za-z0-9]+)+");
  std::set<std::string> keys;
  for (auto at = std::sregex_iterator(text.begin(), text.end(), key); at != std::sregex_iterator(); ++at) {
    keys.insert(at->str());
  }
  return keys;
}

TEST(UserGuide, TellsTheSameKeysInEachChapterOfBothLanguages) {
  const auto english = SectionsOf(EnglishGuide());
  const auto japanese = SectionsOf(JapaneseGuide());
  ASSERT_EQ(english.size(), japanese.size());
  for (std::size_t at = 0; at < english.size(); ++at) {
    EXPECT_EQ(KeysIn(english[at].text), KeysIn(japanese[at].text)) << english[at].heading;
  }
}

TEST(UserGuide, TellsTheKeysOfTheButtons) {
  const std::string window = TextOf(kSourceFolder + "/src/app/page_view.cpp");
  const std::size_t first = window.find("kShortcuts = {");
  const std::set<std::string> of_buttons = KeysIn(window.substr(first, window.find("};", first) - first));
  EXPECT_GE(of_buttons.size(), 7U);
  const std::set<std::string> told = KeysIn(TextOf(EnglishGuide()));
  for (const std::string& key : of_buttons) {
    EXPECT_TRUE(told.contains(key)) << key;
  }
}

TEST(UserGuide, NamesCaptionsAsTheyStandOnTheScreen) {
  std::string screen =
      TextOf(kSourceFolder + "/src/core/texts.cpp") + TextOf(kSourceFolder + "/src/core/boxes.cpp");
  for (const auto& file : std::filesystem::recursive_directory_iterator(SystemFolder())) {
    screen += file.path().extension() == ".def" ? TextOf(file.path()) : std::string();
  }
  screen += "日本語";  // the name of the language
  // The Japanese guide has half-width letters in captions alone.
  for (const Document* guide : Guides()) {
    for (const std::string& caption : JapaneseIn(TextOf(*guide), guide == &JapaneseGuide())) {
      EXPECT_NE(screen.find(caption), std::string::npos) << guide->path << ": " << caption;
    }
  }
}

/// The words of letters and digits of a text.
std::set<std::string> WordsOf(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) == 0; }, ' ');
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

/// The section whose heading ends with the family's word.
std::string SectionOfFamily(const Document& guide, const std::string& word) {
  const auto sections = SectionsOf(guide);
  const auto found = std::find_if(sections.begin(), sections.end(), [&](const DocumentSection& section) {
    return section.heading.ends_with(": `" + word + "`");
  });
  return found == sections.end() ? std::string() : found->text;
}

TEST(UserGuide, TellsOfEachFamilyAndNamesItsModelsThere) {
  for (const Document* guide : Guides()) {
    const std::set<std::string> first_words = WordsOf(SectionsOf(*guide).at(1).text);
    for (const auto& [word, family] : Families()) {
      EXPECT_FALSE(SectionOfFamily(*guide, word).empty()) << guide->path << ": " << word;
      EXPECT_TRUE(first_words.contains(word)) << guide->path << ": " << word;
    }
    for (const Model& model : Models()) {
      EXPECT_TRUE(WordsOf(SectionOfFamily(*guide, model.family)).contains(model.name))
          << guide->path << ": " << model.name;
      EXPECT_TRUE(first_words.contains(model.name)) << guide->path << ": " << model.name;
    }
  }
}

}  // namespace
