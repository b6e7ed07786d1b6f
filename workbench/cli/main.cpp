// The command line of the reference host.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "workbench/cli/check_command.h"
#include "workbench/cli/interrupts.h"
#include "workbench/cli/plan_command.h"
#include "workbench/cli/print_command.h"
#include "workbench/cli/run_command.h"
#include "workbench/cli/tree_command.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/wording.h"

namespace {

using namespace ace::workbench;

constexpr const char* RunExitCodes =
    "Exit codes:\n"
    "  0  the test finished\n"
    "  1  stopped by an answer, an action or the user (Ctrl-C, SIGTERM, SIGHUP, SIGQUIT)\n"
    "  2  a question had no answer; the test was stopped in good order\n"
    "  3  stopped by a run-time error or because the output can't be written any more; without an "
    "output at the start no test was run\n"
    "  4  a file can't be read or makes no sense; no test was run\n"
    "  5  the command line makes no sense; no test was run\n";

constexpr const char* PlanExitCodes =
    "Exit codes:\n"
    "  0  the plan is printed\n"
    "  3  the plan is printed, and a run-time error would end the test; or the output can't be "
    "written\n"
    "  4  a file can't be read or makes no sense\n"
    "  5  the command line makes no sense\n";

constexpr const char* TreeExitCodes =
    "Exit codes:\n"
    "  0  the tree is printed\n"
    "  3  the tree can't be built, or the output can't be written\n"
    "  4  a file can't be read or makes no sense\n"
    "  5  the command line makes no sense\n";

constexpr const char* PrintExitCodes =
    "Exit codes:\n"
    "  0  the print is shown\n"
    "  3  an action can't be printed, or the output can't be written\n"
    "  4  a file can't be read or makes no sense\n"
    "  5  the command line makes no sense\n";

constexpr const char* CheckExitCodes =
    "Exit codes:\n"
    "  0  nothing was found\n"
    "  1  there are findings\n"
    "  2  the file can't be loaded, or not be saved\n"
    "  3  the output can't be written\n"
    "  4  a file can't be read or makes no sense\n"
    "  5  the command line makes no sense\n";

/// What is tested.
void AddSetUpOptions(CLI::App* command, SetUpArguments& arguments) {
    command->add_option("FILE", arguments.file, "the settings file")->required()->type_name("");
    command
        ->add_option("--module", arguments.module,
                     "module kind, 0 to 8 or a name such as aceTemplate; otherwise the file's "
                     "[Workbench] Module")
        ->type_name("M");
    command
        ->add_option("--subranges", arguments.subRanges,
                     "number of subranges, channels, steps or tests; otherwise the file's "
                     "[Workbench] SubRanges")
        ->type_name("N");
    command
        ->add_option("--template", arguments.matrixTemplate,
                     "template number of a matrix, 0 to 3; otherwise --subranges or the file's "
                     "[Workbench] SubRanges")
        ->type_name("N");
}

void AddSweeps(CLI::App* command, TestArguments& arguments) {
    command
        ->add_option(
            "--sweep", arguments.sweeps,
            "such as 80MHz..1GHz/1%; given more than once: one for each subrange, the last "
            "for all that follow; otherwise the file's [Workbench.Subrange<n>]")
        ->type_name("FROM..TO/STEP%")
        ->allow_extra_args(false);
}

/// Who answers, how it waits, what it stands on and what it writes.
void AddHostOptions(CLI::App* run, RunArguments& arguments) {
    run->add_option("--answers", arguments.answers,
                    "the operator's answers; without a file notifications are answered OK and a "
                    "question stops the test")
        ->type_name("FILE");
    run->add_flag("--ask", arguments.ask,
                  "shows notifications, questions and failures and waits for the operator's key; "
                  "with --answers for what no line of the file answers");
    run->add_option("--clock", arguments.clock,
                    "virtual (waits pass at once; this is the default without --real) or real")
        ->type_name("KIND");
    run->add_flag(
        "--real", arguments.real,
        "sends commands, starts programs and runs macros for real; without it all of that "
        "is simulated");
    run->add_flag("--despite-findings", arguments.despiteFindings,
                  "with --real, runs a test also when a check says that it will end with an error");
    run->add_option("--config", arguments.config,
                    "the workbench's configuration: serial ports, bus library, time-outs, ...")
        ->type_name("FILE");
    run->add_option("--traffic", arguments.traffic,
                    "writes what is sent and started to this log, made anew")
        ->type_name("FILE");
    run->add_option("--devices", arguments.devices,
                    "the devices of the bench: names, classes, instruments behind them")
        ->type_name("FILE");
    run->add_option("--fault", arguments.faults,
                    "a script of failures on purpose, such as: GPIB 0:13 fails at the 40th write")
        ->type_name("SCRIPT");
    run->add_option("--trace", arguments.trace, "writes the engine's trace lines to this file")
        ->type_name("FILE");
}

void AddReportOptions(CLI::App* run, RunArguments& arguments) {
    run->add_flag("--brief", arguments.brief,
                  "prints one line for each moment, and one for all frequencies of a sweep, with "
                  "dialogs, failures, verdicts, comments and errors, but no single effects");
}

CLI::App* AddRun(CLI::App& app, RunArguments& arguments) {
    CLI::App* const run = app.add_subcommand(
        "run",
        "Loads a settings file and drives its test; prints one line per effect, or with --brief "
        "per moment.");
    AddSetUpOptions(run, arguments);
    AddSweeps(run, arguments);
    AddHostOptions(run, arguments);
    AddReportOptions(run, arguments);
    run->footer(RunExitCodes);
    return run;
}

CLI::App* AddPlan(CLI::App& app, TestArguments& arguments) {
    CLI::App* const plan = app.add_subcommand(
        "plan",
        "Prints on one page what a run would do: each action once with how often it runs, dialogs, "
        "devices, addresses and the time. Nothing is sent, started or changed.");
    AddSetUpOptions(plan, arguments);
    AddSweeps(plan, arguments);
    plan->add_option("--devices", arguments.devices,
                     "the devices of the bench; without it each device is taken to be there and to "
                     "do what it is told")
        ->type_name("FILE");
    plan->add_option("--answers", arguments.answers,
                     "the operator's answers; what no line of them fits is answered Yes or OK")
        ->type_name("FILE");
    plan->footer(PlanExitCodes);
    return plan;
}

CLI::App* AddTree(CLI::App& app, SetUpArguments& arguments) {
    CLI::App* const tree = app.add_subcommand(
        "tree",
        "Prints the moments of a settings file's test with their actions, for reading and for "
        "diff.");
    AddSetUpOptions(tree, arguments);
    tree->footer(TreeExitCodes);
    return tree;
}

CLI::App* AddPrint(CLI::App& app, SetUpArguments& arguments) {
    CLI::App* const print = app.add_subcommand(
        "print",
        "Prints a settings file's lists as the engine does for a report, with a note on what that "
        "leaves out.");
    AddSetUpOptions(print, arguments);
    print->footer(PrintExitCodes);
    return print;
}

CLI::App* AddCheck(CLI::App& app, CheckArguments& arguments) {
    CLI::App* const check = app.add_subcommand(
        "check",
        "Tells what in a settings file stops, is lost, is taken over or never runs, before its "
        "test.");
    AddSetUpOptions(check, arguments);
    AddSweeps(check, arguments);
    CLI::Option* const json =
        check->add_flag("--json", arguments.json, "one object of JSON a line");
    check
        ->add_flag("--as-loaded", arguments.asLoaded,
                   "shows each line, the action as the engine holds it, and the line as it would "
                   "be saved")
        ->excludes(json);
    check
        ->add_option("--devices", arguments.devices,
                     "the devices of the bench; without them no name of a device is checked")
        ->type_name("FILE");
    check->add_option("--answers", arguments.answers, "checks these answers of an operator, too")
        ->type_name("FILE");
    check->add_option("--fault", arguments.faults, "checks this script of failures, too")
        ->type_name("SCRIPT");
    check->add_flag("--here", arguments.here,
                    "sounds, programs and macros must be on this machine");
    check->footer(CheckExitCodes);
    return check;
}

int Fail(const CommandError& error) {
    std::cout.flush();
    std::cerr << "ace-workbench: " << ToUtf8(OneLine(error.text)) << '\n';
    return static_cast<int>(error.outcome);
}

/// The end of the input and an error are something to read, too.
bool WaitForStandardInput(const std::function<bool()>& isInterrupted) {
    constexpr int SliceMs = 50;
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    while (std::cin.good() && std::cin.rdbuf()->in_avail() <= 0 && poll(&input, 1, SliceMs) <= 0) {
        if (isInterrupted()) {
            return false;
        }
    }
    return true;
}

int RunWith(const RunArguments& arguments) {
    CatchInterrupts();
    const Outcome outcome =
        RunCommand(arguments, {.out = std::cout,
                               .isTerminal = isatty(STDOUT_FILENO) != 0,
                               .isInterrupted = IsInterrupted,
                               .input = {.stream = &std::cin,
                                         .isTerminal = isatty(STDIN_FILENO) != 0,
                                         .wait = WaitForStandardInput}});
    return static_cast<int>(outcome);
}

int PrintTree(const SetUpArguments& arguments) {
    TreeCommand(arguments, std::cout);
    return 0;
}

/// Characters in a line of the terminal; 0 for any other output.
std::size_t OutputWidth() {
    winsize size{};
    const bool isKnown = isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return isKnown ? size.ws_col : 0;
}

int PrintLists(const SetUpArguments& arguments) {
    PrintCommand(arguments, {.out = std::cout, .width = OutputWidth()});
    return 0;
}

int Check(const CheckArguments& arguments) {
    return static_cast<int>(CheckCommand(arguments, {.out = std::cout, .width = OutputWidth()}));
}

/// One of the commands, and what it does when its arguments are read: it answers the exit code.
struct Command {
    const CLI::App* app;
    std::function<int()> act;
};

/// The exit code of a command, which prints to the standard output.
int ExitCodeOf(const std::function<int()>& command) {
    try {
        const int code = command();
        if (!std::cout.flush()) {
            return Fail(
                {Outcome::Failed,
                 L"the output can't be written any more, so what it tells is not complete"});
        }
        return code;
    } catch (const CommandError& error) {
        return Fail(error);
    } catch (const std::exception& error) {
        return Fail({Outcome::Failed, FromUtf8(error.what())});
    }
}

/// The command line that would have helped.
ace::String HelpFor(const CLI::App& app) {
    const std::vector<CLI::App*> commands = app.get_subcommands();
    return L"ace-workbench " +
           (commands.empty() ? ace::String() : FromUtf8(commands.front()->get_name()) + L" ") +
           L"--help";
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): without memory for its options a program can only end.
int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);  // so that the stream knows what it has read ahead
    CLI::App app{"Reference host of the actions engine"};
    app.require_subcommand(0, 1);
    app.footer("ace-workbench COMMAND --help tells more.");
    RunArguments toRun;
    TestArguments toPlan;
    SetUpArguments toShow;
    SetUpArguments toPrint;
    CheckArguments toCheck;
    const Command commands[] = {
        {AddRun(app, toRun), [&] { return RunWith(toRun); }},
        {AddPlan(app, toPlan), [&] { return static_cast<int>(PlanCommand(toPlan, std::cout)); }},
        {AddTree(app, toShow), [&] { return PrintTree(toShow); }},
        {AddPrint(app, toPrint), [&] { return PrintLists(toPrint); }},
        {AddCheck(app, toCheck), [&] { return Check(toCheck); }},
    };
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        return Fail({Outcome::WrongUse, FromUtf8(error.what()) + L" (" + HelpFor(app) + L")"});
    }
    const auto* const wanted = std::ranges::find_if(
        commands, [](const Command& command) { return command.app->parsed(); });
    if (wanted == std::end(commands)) {
        return Fail({Outcome::WrongUse, L"say what to do, such as: ace-workbench run FILE"});
    }
    return ExitCodeOf(wanted->act);
}
