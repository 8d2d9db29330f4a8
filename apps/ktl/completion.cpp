#include "completion.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <vector>

namespace program {

namespace {

const char* const files = "FILE";

/// Those of the command itself take precedence.
std::string words_of(const Words& words, const CLI::App& command, const std::string& name) {
    auto at = words.find(command.get_name() + " " + name);
    if (at == words.end()) at = words.find(name);
    return at == words.end() ? std::string() : at->second;
}

std::vector<const CLI::Option*> arguments(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}
std::vector<const CLI::Option*> own_options(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}
/// The options of the command, then those that only the commands below it have.
std::vector<const CLI::Option*> options(const CLI::App& app) {
    std::vector<const CLI::Option*> out = own_options(app);
    if (app.get_parent() == nullptr) return out; // the commands of the program have their own
    for (const CLI::App* below : app.get_subcommands(nullptr)) {
        for (const CLI::Option* option : own_options(*below)) {
            const bool is_known = std::any_of(out.begin(), out.end(), [&](const CLI::Option* known) {
                return known->get_lnames() == option->get_lnames();
            });
            if (!is_known) out.push_back(option);
        }
    }
    return out;
}

/// All spellings of the options, "-o --output".
std::string spellings(const CLI::App& app) {
    std::string out;
    for (const CLI::Option* option : options(app)) {
        for (const std::string& name : option->get_snames()) out += " -" + name;
        for (const std::string& name : option->get_lnames()) out += " --" + name;
    }
    return out.empty() ? out : out.substr(1);
}

std::string commands(const CLI::App& app) {
    std::string out;
    for (const CLI::App* command : app.get_subcommands(nullptr)) out += command->get_name() + " ";
    return out;
}

std::string reply(const std::string& words) {
    if (words.empty()) return "return";
    if (words == files) return "COMPREPLY=($(compgen -f -- \"$cur\"))";
    return "COMPREPLY=($(compgen -W \"" + words + "\" -- \"$cur\"))";
}

/// The words behind an option, once for each that takes a value.
std::string option_cases(const CLI::App& app, const Words& words) {
    std::string out;
    for (const CLI::Option* option : options(app)) {
        if (option->get_items_expected_max() == 0) continue;
        std::string spelled;
        for (const std::string& name : option->get_snames()) spelled += "|-" + name;
        for (const std::string& name : option->get_lnames()) spelled += "|--" + name;
        out += "            " + spelled.substr(1) + ") " + reply(words_of(words, app, option->get_lnames().front())) +
               "; return ;;\n";
    }
    return out;
}

std::string bash(const CLI::App& app, const Words& words) {
    std::ostringstream out;
    out << "# Completion of ktl for bash, written by \"ktl completion bash\".\n"
           "_ktl() {\n"
           "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} place=0 i\n"
           "    COMPREPLY=()\n"
           "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
           "        "
        << reply(commands(app) + spellings(app)) << "\n        return\n    fi\n"
        << "    for ((i = 2; i < COMP_CWORD; i++)); do\n"
           "        case ${COMP_WORDS[i]} in -?*) ;; *) place=$((place + 1)) ;; esac\n"
           "    done\n"
           "    case ${COMP_WORDS[1]} in\n";
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        out << "    " << command->get_name() << ")\n";
        if (const std::string cases = option_cases(*command, words); !cases.empty())
            out << "        case $prev in\n" << cases << "        esac\n";
        out << "        case $cur in -*) " << reply(spellings(*command)) << "; return ;; esac\n"
            << "        case $place in\n";
        int place = 0;
        if (arguments(*command).empty() && !commands(*command).empty())
            out << "            " << place << ") " << reply(commands(*command)) << " ;;\n";
        for (const CLI::Option* argument : arguments(*command))
            out << "            " << place++ << ") " << reply(words_of(words, *command, argument->get_name(true)))
                << " ;;\n";
        out << "        esac ;;\n";
    }
    out << "    esac\n}\ncomplete -F _ktl ktl\n";
    return out.str();
}

/// Text between apostrophes of fish.
std::string quoted(std::string text) {
    std::replace(text.begin(), text.end(), '\'', ' ');
    return "'" + text + "'";
}

std::string fish(const CLI::App& app, const Words& words) {
    std::ostringstream out;
    out << "# Completion of ktl for fish, written by \"ktl completion fish\".\ncomplete -c ktl -f\n";
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        const std::string seen = "complete -c ktl -n '__fish_seen_subcommand_from " + command->get_name() + "'";
        out << "complete -c ktl -n __fish_use_subcommand -a " << command->get_name() << " -d "
            << quoted(command->get_description()) << "\n";
        for (const CLI::App* below : command->get_subcommands(nullptr))
            out << seen << " -a " << below->get_name() << " -d " << quoted(below->get_description()) << "\n";
        for (const CLI::Option* option : options(*command)) {
            out << seen;
            for (const std::string& name : option->get_snames()) out << " -s " << name;
            for (const std::string& name : option->get_lnames()) out << " -l " << name;
            const std::string value = words_of(words, *command, option->get_lnames().front());
            if (option->get_items_expected_max() != 0)
                out << (value == files ? " -r -F" : " -x" + (value.empty() ? value : " -a " + quoted(value)));
            out << " -d " << quoted(option->get_description()) << "\n";
        }
        for (const CLI::Option* argument : arguments(*command)) {
            const std::string value = words_of(words, *command, argument->get_name(true));
            if (!value.empty()) out << seen << (value == files ? " -F" : " -a " + quoted(value)) << "\n";
        }
    }
    return out.str();
}

} // namespace

std::string completion_script(const CLI::App& app, const Words& words, const std::string& shell) {
    if (shell == "fish") return fish(app, words);
    if (shell == "zsh") // zsh runs the functions of bash
        return "#compdef ktl\nautoload -U +X bashcompinit && bashcompinit\n" + bash(app, words);
    return bash(app, words);
}

} // namespace program
