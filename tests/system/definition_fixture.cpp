#include "definition_fixture.h"

#include <algorithm>
#include <cctype>
#include <charconv>

std::vector<Model> ModelsWithDefinition() {
  std::vector<Model> models;
  for (const auto& model : Models()) {
    if (Families().contains(model.family) &&
        std::ranges::find(models, model.name, &Model::name) == models.end()) {
      models.push_back(model);
    }
  }
  return models;
}

std::string TestName(const testing::TestParamInfo<Model>& test) {
  std::string name = test.param.name;
  std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
  return name;
}

int Index(const std::string& text) {
  if (text.empty()) {
    return -1;
  }
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() && value >= 0 ? value : -2;
}

std::optional<double> Number(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

bool OneOf(std::string_view text, std::initializer_list<std::string_view> allowed) {
  return std::ranges::find(allowed, text) != allowed.end();
}

std::string_view TableOf(const Source& source, std::string_view list) {
  constexpr std::string_view body = "$I11Body";
  if (list == "$I10" && source.Find(list) == nullptr && !source.Rows("$I00").empty()) {
    return source.Rows("$I00")[0][2];
  }
  return list == "$I11" && source.Find(body) != nullptr ? body : list;
}
