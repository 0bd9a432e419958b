#pragma once

#include <ktpnaips/briefing/briefing_request.h>
#include <ktpnaips/core/date_time.h>

#include <CLI/App.hpp>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// Arguments and options of commands, handed to properties as they are read.
namespace cli {

using TextSetter = std::function<void(std::wstring_view)>;

/// An argument, or an option when its name starts with "--", with one text.
CLI::Option* addText(CLI::App& app, const char* name, const char* help, TextSetter set);

/// An argument with one or more texts, or an option that may be repeated.
CLI::Option* addTexts(CLI::App& app, const char* name, const char* help, TextSetter add);

/// An option that is there or not.
void addFlag(CLI::App& app, const char* name, const char* help, std::function<void()> set);

/// A whole number of 16 bits.
CLI::Option* addNumber(CLI::App& app, const char* name, const char* help,
                       std::function<void(std::int16_t)> set);

/// `--group`: the group on whose behalf the request is made.
template <class Request>
void addGroup(CLI::App& app, const std::shared_ptr<Request>& request) {
  addText(app, "--group", "Group on whose behalf", [=](auto text) { request->GroupId(text); });
}

/// The argument FILE: a request file, or "-" for standard input.
void addRequestFile(CLI::App& app, const std::function<void(const std::string&)>& read);

/// `--from`, `--till` and `--hours` of a briefing period. The request outlives the parsing.
void addPeriod(CLI::App& app, ktpnaips::BriefingRequest& period);

/// Reads "YYYY-MM-DDThh:mm[:ss]", with or without a Z; throws `UsageError` for other text.
ktpnaips::DateTime parseDateTime(const std::string& text);

/// Reads "YYYY-MM-DD" as its midnight; throws `UsageError` for other text.
ktpnaips::DateTime parseDate(const std::string& text);

}  // namespace cli
