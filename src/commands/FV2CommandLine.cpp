// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/FV2CommandLine.h"

#include "logging/LogEscape.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QFile>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace fv2 {

namespace {

struct Option {
    FV2Command command;
    const char* name;
    const char* letter;
    const char* shownAs;
    const char* description;
};

constexpr std::array kOptions{
    Option{FV2Command::RunWithWindow, "show-window", "", "--show-window",
           "show the window, in the running copy if any"},
    Option{FV2Command::RunInBackground, "background", "", "--background", "run without showing a window"},
    Option{FV2Command::Status, "status", "", "--status [--json]", "print what the service says"},
    Option{FV2Command::Synchronise, "sync", "", "--sync", "let the running copy synchronise"},
    Option{FV2Command::Quit, "quit", "", "--quit", "end the running copy"},
    Option{FV2Command::CheckConfig, "check-config", "", "--check-config", "print every mistake in the settings"},
    Option{FV2Command::Diagnose, "diagnose", "", "--diagnose [FILE]", "write a report for whoever helps you"},
    Option{FV2Command::Help, "help", "h", "-h, --help", "print this text"},
    Option{FV2Command::Version, "version", "v", "-v, --version", "print the version"},
};

//! A session manager passes it, with a value.
constexpr std::string_view kSession = "-session";
constexpr std::array kQtOptions{kSession, std::string_view("-platform"), std::string_view("-display"),
                                std::string_view("-style")};

//! Takes them and their values out; true if a session manager's is among them.
bool takeQtOptions(QStringList& arguments) {
    bool isRestored = false;
    for (qsizetype i = 0; i + 1 < arguments.size();) {
        const std::string option = arguments[i].toStdString();
        if (std::ranges::find(kQtOptions, option) == kQtOptions.end()) {
            ++i;
            continue;
        }
        isRestored = isRestored || option == kSession;
        arguments.remove(i, 2);
    }
    return isRestored;
}

//! What the parsed options say, first of all what is wrong with them.
QString take(const QCommandLineParser& parser, FV2CommandLine& line) {
    const char* chosen = nullptr;
    for (const Option& option : kOptions) {
        if (!parser.isSet(QLatin1String(option.name)))
            continue;
        if (chosen != nullptr)
            return QStringLiteral("--%1 and --%2 can't be combined")
                .arg(QLatin1String(chosen), QLatin1String(option.name));
        chosen = option.name;
        line.command = option.command;
    }
    line.asJson = parser.isSet(QStringLiteral("json"));
    if (line.asJson && line.command != FV2Command::Status)
        return QStringLiteral("--json needs --status");
    QStringList rest = parser.positionalArguments();
    if (line.command == FV2Command::Diagnose && !rest.isEmpty())
        line.file = QFile::encodeName(rest.takeFirst()).toStdString();
    return rest.isEmpty() ? QString() : QStringLiteral("unexpected argument '%1'").arg(rest.front());
}

} // namespace

FV2CommandLine parsedCommandLine(QStringList arguments) {
    FV2CommandLine line;
    const bool isRestored = takeQtOptions(arguments);
    QCommandLineParser parser;
    for (const Option& option : kOptions) {
        QStringList names{QLatin1String(option.name)};
        if (*option.letter != '\0')
            names += QLatin1String(option.letter);
        parser.addOption(QCommandLineOption(names));
    }
    parser.addOption(QCommandLineOption(QStringLiteral("json")));
    const bool isUnderstood = parser.parse(QStringList(QString()) + arguments);
    line.mistake = escapedForLog((isUnderstood ? take(parser, line) : parser.errorText()).toStdString());
    if (isRestored && line.command == FV2Command::Run)
        line.command = FV2Command::RunInBackground;
    return line;
}

std::string helpText() {
    std::ostringstream text;
    text << "Usage: fv2-agent [option]\n"
            "Shows in the tray how this computer's disk encryption is doing.\n\n";
    for (const Option& option : kOptions) {
        text << "  " << option.shownAs << std::string(20 - std::char_traits<char>::length(option.shownAs), ' ')
             << option.description << '\n';
    }
    text << "\nWithout an option it runs the agent; if a copy runs already, that one shows its window.\n"
            "--status exits with 0 for green, 1 for yellow, 2 for red, 3 if the service can't be reached.\n"
            "fv2-agent(1) says more.\n";
    return text.str();
}

} // namespace fv2
