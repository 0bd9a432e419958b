#include "cli/manual.h"

#include "cli/quoting.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view head = R"(.TH NAIPS 1 "" "naips )" KTPNAIPS_VERSION R"(" "User Commands"
.nh
.SH NAME
naips \- briefings and flight notifications from NAIPS
.SH SYNOPSIS
.B naips
[\fIoptions\fR] \fIcommand\fR [\fIsubcommand\fR] [\fIarguments\fR] [\fIoptions\fR]
.SH DESCRIPTION
.B naips
sends a request to NAIPS, the flight\-briefing and flight\-notification service, and shows its
answer. Date\-times are written \fIYYYY\-MM\-DD\fBT\fIhh\fB:\fImm\fR[\fB:\fIss\fR]\fBZ\fR and are
always UTC.
.PP
A request file is JSON; its keys are names of properties, as the example files show. A key that is
left out leaves its property at the default.
)";

constexpr std::string_view foot = R"(.SH EXIT STATUS
.TP
.B 0
The service answered with success.
.TP
.B 1
The service or the network refused.
.TP
.B 2
The command line, a file named on it or its content is unusable; nothing was sent.
.TP
.B 3
An unexpected internal failure was reported while the command ran.
.SH ENVIRONMENT
.TP
.B NAIPS_USER
User name, where
.B \-\-user
is not given.
.TP
.B NAIPS_PASSWORD
Password, where no file is named. Without either, it is asked for at the terminal.
.TP
.BR SSL_CERT_FILE ", " SSL_CERT_DIR
Trusted certificate issuers instead of the system's.
.TP
.BR https_proxy ", " HTTPS_PROXY ", " http_proxy ", " all_proxy ", " no_proxy
The proxy to go through, and what is reached directly.
.TP
.B NO_COLOR
When set, terminals are shown no colours.
.TP
.BR XDG_CONFIG_HOME ", " XDG_DATA_HOME
Where the files below are; by default
.I ~/.config
and
.IR ~/.local/share .
.SH FILES
.TP
.I $XDG_CONFIG_HOME/naips/config.toml
Settings: the keys are the long options of
.BR naips ,
such as
.BR "user = \(dqpilot1\(dq" .
A password does not belong there.
.B naips config show
tells what is set, and by whom.
.TP
.I $XDG_DATA_HOME/VelmoraSoftware
The product files of briefings. They stay until they are removed.
.SH EXAMPLES
Who am I? The password is asked for:
.PP
.RS
.EX
naips account login \-\-user pilot1
.EE
.RE
.PP
A briefing for two locations and the next 6 hours, without an account:
.PP
.RS
.EX
naips brief location YSSY YMML \-\-met \-\-ntm \-\-hours 6 \-\-simulate
.EE
.RE
.PP
Charts of forecast areas, copied into a folder:
.PP
.RS
.EX
naips brief area 20 21 \-\-charts \-\-out charts
.EE
.RE
.PP
Messages as JSON, for scripts:
.PP
.RS
.EX
naips brief met YSSY \-\-type TAF \-\-type METAR \-\-json
.EE
.RE
.PP
What filing a plan would send:
.PP
.RS
.EX
naips flight file icao\-plan.json \-\-dry\-run
.EE
.RE
.SH SEE ALSO
.BR naips\-simulator (1)
)";

/// Plain text as man's input has it, where a line cannot begin with a control character.
std::string roff(const std::string& text) {
  std::string written = replaced(replaced(text, "\\", "\\e"), "-", "\\-");
  if (written.starts_with('.') || written.starts_with('\'')) written.insert(0, "\\&");
  return written;
}

std::string bold(const std::string& text) {
  return "\\fB" + roff(text) + "\\fR";
}

std::string italic(const std::string& text) {
  return "\\fI" + roff(text) + "\\fR";
}

std::string valueShown(const Parameter& option) {
  if (option.value == Value::none) return {};
  if (option.value != Value::choice) return ' ' + italic(option.valueName);
  std::vector<std::string> choices;
  for (const auto& each : option.choices) choices.push_back(bold(each));
  return fmt::format(" {}", fmt::join(choices, "|"));
}

std::string optionEntry(const Parameter& option) {
  std::vector<std::string> names;
  for (const auto& name : option.names) names.push_back(bold(name));
  return fmt::format(".TP\n{}{}\n{}\n", fmt::join(names, ", "), valueShown(option),
                     roff(option.help));
}

std::string argumentOf(const Parameter& argument) {
  const std::string word = italic(argument.valueName) + (argument.isRepeatable ? "..." : "");
  return argument.isRequired ? ' ' + word : " [" + word + ']';
}

std::string argumentHelp(const Parameter& argument) {
  const std::string choices = fmt::format("{}", fmt::join(argument.choices, ", "));
  return fmt::format("{}: {}{}.\n.br\n", italic(argument.valueName), roff(argument.help),
                     choices.empty() ? "" : ": " + choices);
}

std::string commandEntry(const CommandNode& command) {
  std::string entry = ".TP\n" + bold(command.words);
  for (const Parameter& argument : command.arguments) entry += argumentOf(argument);
  entry += '\n' + roff(command.help) + ".\n";
  if (!command.arguments.empty()) entry += ".br\n";
  for (const Parameter& argument : command.arguments) entry += argumentHelp(argument);
  if (entry.ends_with(".br\n")) entry.erase(entry.size() - 4);
  if (command.options.empty()) return entry;
  entry += ".RS\n";
  for (const Parameter& option : command.options) entry += optionEntry(option);
  return entry + ".RE\n";
}

std::string commands(const CommandNode& root) {
  std::string single;
  std::string groups;
  for (const CommandNode& node : root.commands) {
    if (node.commands.empty()) {
      single += commandEntry(node);
      continue;
    }
    groups += fmt::format(".SS {}\n", roff(node.help));
    for (const CommandNode& each : node.commands) groups += commandEntry(each);
  }
  return ".SH COMMANDS\n" + single + groups;
}

/// The options that may stand before or after every command, under the headings of the help.
std::string options(const CommandNode& root) {
  std::string text = ".SH OPTIONS\nThese may stand before or after the command.\n";
  std::string group;
  for (const Parameter& option : root.options) {
    if (option.group != group && option.group != "Options") {
      text += fmt::format(".SS {}\n", roff(option.group));
    }
    group = option.group;
    text += optionEntry(option);
  }
  return text;
}

}  // namespace

std::string manual(const CommandNode& root) {
  return std::string(head) + commands(root) + options(root) + std::string(foot);
}

}  // namespace cli
