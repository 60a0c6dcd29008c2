#include "cli/arguments.h"

#include <cstddef>

namespace korva::cli {

std::optional<Arguments> ParseArguments(std::span<const char* const> words, std::string& problem) {
  Arguments arguments;
  bool script_given = false;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::string word = words[at];
    if (word == "--home") {
      if (++at == words.size()) {
        problem = "--home needs a folder";
        return std::nullopt;
      }
      arguments.home = words[at];
    } else if (word == "--line") {
      arguments.line = true;
    } else if (word == "--keep-going") {
      arguments.keep_going = true;
    } else if (word == "--strict") {
      arguments.strict = true;
    } else if (word == "--help" || word == "-h") {
      arguments.help = true;
    } else if (word.starts_with('-') && word != "-") {
      problem = "unknown option \"" + word + "\"";
      return std::nullopt;
    } else if (script_given) {
      problem = "more than one script";
      return std::nullopt;
    } else {
      script_given = true;
      if (word != "-") {
        arguments.script = word;
      }
    }
  }
  return arguments;
}

std::string_view HelpText() {
  return R"(korva-cli: the configurator without a window

  korva-cli [--home DIR] [--line] [--keep-going] [--strict] [SCRIPT]

  --home DIR     the program's folder with system/, data/ and ports/; default: that of the executable;
                 where KORVA is installed, korva in $XDG_DATA_HOME, which is ~/.local/share unless set
  --line         print the traffic with the device as well
  --keep-going   go on behind a line that is no action or names no control
  --strict       end with status 4 when an action or an answer was refused
  --help         print this, and end

SCRIPT holds one action of the user a line; without it, or with "-", standard input does:

  start                  start the program; any other action starts it too
  choose TEXT | #N       choose a model by its name or its position in the list
  click CONTROL          press a button, an option button or a port choice
  type CONTROL TEXT      replace the text of a field
  pick CONTROL TEXT      choose an entry of a combo box
  cell GRID ROW COL      click a cell of a grid
  key CONTROL KEY        press Enter, Up, Down, Left or Right in a field
  tab N                  click tab N, from 0
  answer A ...           answers for the coming boxes: ok, cancel, yes, no
  file PATH | cancel     outcome of the next file dialog
  after MS ACTION        carry ACTION out MS milliseconds after the next start, click, choose or wait begins
  wait MS                let the program run for MS milliseconds
  close                  press the close box
  show CONTROL ...       print the controls' states; KvCfg_Tab(N) is tab N, from 0
  dump [GRID]            print the items of the parameter set, or the cells of a grid
  compare device         list what differs between the page and the device, which is read; the page stays as it is
  compare file PATH      the same with a configuration file
  pdf PATH               write the page's settings as a PDF file
  report                 print the report of the last transfer: item, name, sent, answered, proof
  watch                  print the live values: item, name, value, unit, least, most, and the age of an old one

What the screen would not let the user do prints "refused ACTION: REASON" and does nothing. So does a queued answer
that its box does not offer ("refused answer yes: not offered"); the box then takes cancel, else no.

SIGINT, SIGTERM and SIGHUP press the close box: a download is finished first.

Exit status: 0 done, 1 the program failed, 2 a wrong line or argument, 3 DIR is no folder, 4 with --strict: something
was refused, 5 what is printed can't be written.
)";
}

}  // namespace korva::cli
