// Of the copies of a template's function the linker keeps the first that it meets. The tests' copies are
// compiled quickly and run slowly; the libraries' strings, most of what these work with, must not run through
// them. So this unit is optimised and stands first on every test's line.
#include <string>
#include <string_view>
#include <vector>

template class std::basic_string<char>;
template class std::basic_string<char16_t>;
template class std::basic_string_view<char>;
template class std::basic_string_view<char16_t>;
template class std::vector<std::string>;
template class std::vector<std::u16string>;
