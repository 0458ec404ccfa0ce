// The expansion of lines beside its rule, word for word, in worlds made of chance.
#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "engine/expandProfileLine.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "support/slowReplacement.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

constexpr int level = 2;
constexpr int index = 7;
const std::string scriptPath = "C:\\Work\\P\\a.bqp";

/// What an item puts into a line.
std::string itemText(bool comb, const std::string& item) {
    if (!comb) return item;
    const std::string behind = item.substr(item.find('[') + 1);
    return behind.substr(0, behind.size() - 1);
}

Lines itemsOf(const std::string& typeSpec) {
    Lines items;
    const std::string inner = typeSpec.substr(5, typeSpec.size() - 6);
    for (const auto item : split(inner, "||")) items.emplace_back(item);
    return items;
}

std::string numbered(bool comb, const Lines& items, const std::string& number) {
    const int position = toInteger16(number);
    if (position == 0) return {};
    if (position < 0 || position > static_cast<int>(items.size())) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    return itemText(comb, items[static_cast<std::size_t>(position) - 1]);
}

bool isChoiceType(const VariableDeclaration& variable) {
    const std::string start = lowerCase(variable.typeSpec.substr(0, 4));
    return start == "list" || start == "comb";
}

class SlowExpansion {
  public:
    explicit SlowExpansion(std::string line) : line_(std::move(line)) {}

    /// The line as it stands before the last pass.
    const std::string& beforeLastPass() {
        const std::string doubled = doubleBackslashes(dirOf(scriptPath));
        replace("exepath", exeDirectory());
        replace("exepathdblslash", doubleBackslashes(exeDirectory()));
        replace("scriptpath", dirOf(scriptPath));
        replace("scriptpathdblslash", doubled);
        replace("index", std::to_string(index));
        for (const auto& variable : settings.globalVars) replace(variable.name, variable.value);
        const auto& loops = engineTables.loops[level];
        for (std::size_t i = 0; i < loops.depth && i < loops.records.size(); ++i) counter(loops.records[i]);
        for (const auto& entry : variableTables.values[level]) assign(entry);
        for (const auto& record : loops.records) counter(record);
        for (const auto& variable : variableTables.profileVariables[level]) declared(variable);
        return line_;
    }

    const std::string& lastPass() {
        const auto& results = variableTables.pluginResults[level];
        for (std::size_t i = 0; i <= results.count(); ++i) replace(results.row(i).name, results.row(i).value);
        return line_;
    }

  private:
    void replace(const std::string& name, const std::string& value) { line_ = replacedSlowly(name, value, line_); }
    void counter(const LoopRecord& record) { replace(record.variable, std::to_string(record.current)); }

    void forms(const std::string& name, const std::string& number, const std::string& label) {
        line_ = replaceAll(line_, "index($" + name + "$)", number);
        line_ = replaceAll(line_, "text($" + name + "$)", label);
    }

    void assign(const std::string& entry) {
        const std::string name = entry.substr(0, entry.find('='));
        std::string value = entry.substr(entry.find('=') + 1);
        const auto& variable =
            variableTables.profileVariables[level].row(static_cast<std::size_t>(findVar(name, level)));
        if (isChoiceType(variable)) value = choose(variable, value);
        replace(variable.name, value);
    }

    std::string choose(const VariableDeclaration& variable, std::string value) {
        const bool comb = lowerCase(variable.typeSpec).starts_with("comb");
        const Lines items = itemsOf(variable.typeSpec);
        if (lowerCase(value).starts_with("list(")) {
            const int number = toInteger16(value.substr(5, value.size() - 6));
            if (number == 0) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
            const bool known = number > 0 && number <= static_cast<int>(items.size());
            value = known ? itemText(comb, items[static_cast<std::size_t>(number) - 1]) : "Error";
        }
        if (value.empty()) forms(variable.name, "0", "");
        for (std::size_t i = 0; i < items.size() && !value.empty(); ++i) {
            if (itemText(comb, items[i]) != value) continue;
            if (comb) label_ = items[i].substr(0, items[i].find('['));
            forms(variable.name, std::to_string(i + 1), label_);
            break;
        }
        return value;
    }

    void declared(const VariableDeclaration& variable) {
        const bool refers = lowerCase(line_).find(lowerCase("$" + variable.name + "$")) != std::string::npos;
        if (!refers) return;
        const bool comb = lowerCase(variable.typeSpec).starts_with("comb");
        const bool item = isChoiceType(variable) && !variable.defaultValue.empty();
        replace(variable.name,
                item ? numbered(comb, itemsOf(variable.typeSpec), variable.defaultValue) : variable.defaultValue);
    }

    std::string line_;
    std::string label_;
};

class ExpansionReference : public ProgramTest {
  protected:
    void makeWorld() {
        variableTables.reset();
        settings.globalVars.clear();
        engineTables.loops[level] = Loops();
        for (auto n = below(4); n > 0; --n) settings.globalVars.append({name(), value()});
        for (auto n = below(6); n > 0; --n) declare();
        for (auto n = below(3); n > 0; --n) variableTables.pluginResults[level].append({name(), value()});
        if (below(4) == 0) variableTables.pluginResults[level].resetCount();
    }

    void declare() {
        static const Lines types{"Text", "Text", "PathOpen(a|*.*)", "List(red||$a$||b)",
                                 "comb(Fast[-1]||Best[$b]||c[])"};
        const std::string& type = any(types);
        const std::string number =
            any({"", "0", "1", "2", "3", "3", below(8) == 0 ? "9" : "1", below(8) == 0 ? "x" : "2"});
        variableTables.profileVariables[level].append({name(), type, "info", type.size() > 15 ? number : value(), 0});
    }

    /// What changes from line to line.
    void stir() {
        auto& values = variableTables.values[level];
        const auto& variables = variableTables.profileVariables[level];
        values.resetCount();
        for (auto n = variables.empty() ? 0 : below(4); n > 0; --n) {
            const std::string& given = variables.row(below(variables.count())).name;
            const std::string chosen = any({"list(1)", "LIST(2)", "list(3)", "list(4)", "list(-1)", "red", "$a$", "-1",
                                            "", below(9) == 0 ? "list(0)" : "b", value(), value(), value(), value()});
            values.append(given + "=" + chosen);
        }
        auto& loops = engineTables.loops[level];
        if (below(3) == 0) loops.records.emplace_back().variable = name();
        if (loops.records.size() > 3) loops.records.clear();
        for (auto& record : loops.records) {
            record.current = static_cast<int>(below(30));
            record.currentText = std::to_string(record.current);
        }
        loops.depth = below(loops.records.size() + 2);
    }

    std::string name() {
        static const Lines names{"a", "b",     "A",   "ab", "input", "Output", "i",
                                 "é", "index", "x y", "-",  "",      "a$b",    "exepath"};
        return names[below(below(4) == 0 ? names.size() : 8)];
    }
    std::string value() {
        static const Lines values{"",  "1",  "x",  "value",      "C:\\p\\q", "é",  "$a$",  "$", "$b",
                                  "a", "b$", "ab", "index($a$)", "$$",       "$5", "/$ $", "5$"};
        return values[below(below(3) == 0 ? values.size() : 6)];
    }
    std::string line() {
        static const Lines plain{"tool", " --in ", "/", "-", " é ", "\"", " ", "5"};
        static const Lines odd{"$",
                               "$$",
                               "a",
                               "$5",
                               "index(",
                               "input",
                               "text($a$)",
                               "text($ab$)",
                               "index($input$)",
                               "$exepath$",
                               "$SCRIPTPATHDBLSLASH$",
                               "$Index$",
                               "$none$",
                               "$exepathdblslash$",
                               "$scriptpath$"};
        std::string text;
        const bool tame = below(2) == 0;
        for (auto n = below(8); n > 0; --n) {
            const std::string reference = "$" + (below(2) == 0 ? upperCase(name()) : name()) + "$";
            const auto what = below(tame ? 2 : 5);
            text += what == 0 ? reference : what == 1 ? any(plain) : what == 2 ? any(odd) : "index(" + reference + ")";
            if (tame) text += any(plain);
        }
        return text;
    }

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_()) % limit; }
    const std::string& any(const Lines& texts) { return texts[below(texts.size())]; }

    std::mt19937 random_{1};
};

/// The text, or the error's number.
template <typename Expand>
std::string outcome(Expand expand) {
    try {
        return expand();
    } catch (const RunTimeError& error) {
        return "error " + std::to_string(static_cast<int>(error.number()));
    }
}

TEST_F(ExpansionReference, AHundredThousandLinesComeOutAsTheRuleSays) {
    int errors = 0;
    int changed = 0;
    for (int round = 0; round < 100'000; ++round) {
        if (round % 20 == 0) makeWorld();
        stir();
        const std::string text = line();
        std::string before;
        const std::string expected = outcome([&] {
            SlowExpansion slow(text);
            before = slow.beforeLastPass();
            return slow.lastPass();
        });
        std::string given = text;
        ASSERT_EQ(outcome([&] { return expandProfileLine(given, level, scriptPath, index); }), expected)
            << text << " in round " << round;
        ASSERT_EQ(outcome([&] { return expandedLine(text, level, scriptPath, index); }), expected) << text;
        const bool failed = expected.starts_with("error ");
        errors += failed ? 1 : 0;
        changed += expected == text ? 0 : 1;
        ASSERT_EQ(failed ? before : given, before) << text;
    }
    EXPECT_GT(errors, 300);
    EXPECT_GT(changed, 50'000);
}

}  // namespace
}  // namespace brasquelin
