#include "accessible/far_tree.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "gui_support/processes.h"

namespace tavernook {

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString text_interface = QStringLiteral("org.a11y.atspi.Text");
const QString table_interface = QStringLiteral("org.a11y.atspi.Table");
const QString root_path = QStringLiteral("/org/a11y/atspi/accessible/root");

constexpr std::size_t most_parts_of_one = 240;

using Reference = std::pair<QString, QString>;  // a program and a part of it

std::vector<Reference> read_references(const QDBusArgument& list) {
    std::vector<Reference> found;
    list.beginArray();
    while (!list.atEnd()) {
        QString program;
        QDBusObjectPath path;
        list.beginStructure();
        list >> program >> path;
        list.endStructure();
        found.emplace_back(program, path.path());
    }
    list.endArray();
    return found;
}

std::vector<Reference> references(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) return {};
    return read_references(value.value<QDBusArgument>());
}

std::uint64_t bits(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) return 0;
    QList<uint> words;
    value.value<QDBusArgument>() >> words;
    return words.value(0) | std::uint64_t{words.value(1)} << 32;
}

// What labels a part: relation 2 of the set.
QString labelling_part(const QVariant& value) {
    QString found;
    if (!value.canConvert<QDBusArgument>()) return found;
    const auto list = value.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        uint kind = 0;
        list.beginStructure();
        list >> kind;
        const std::vector<Reference> targets = read_references(list);
        list.endStructure();
        constexpr uint labelled_by = 2;
        if (kind == labelled_by && !targets.empty()) found = targets.front().second;
    }
    list.endArray();
    return found;
}

// Asks many parts at once: the questions are all sent before the first answer is waited for.
class Reader {
  public:
    Reader(const QDBusConnection& bus, QString program) : bus_(bus), program_(std::move(program)) {}

    void ask(const QString& path, const QString& room, const char* method,
             const QVariantList& arguments, std::function<void(const QVariant&)> answered) {
        auto call = QDBusMessage::createMethodCall(program_, path, room, QLatin1String(method));
        call.setArguments(arguments);
        asked_.emplace_back(bus_.asyncCall(call, process_time_limit_ms), std::move(answered));
    }
    void ask_property(const QString& path, const QString& room, const char* name,
                      std::function<void(const QVariant&)> answered) {
        ask(path, QStringLiteral("org.freedesktop.DBus.Properties"), "Get",
            {room, QLatin1String(name)}, [answered = std::move(answered)](const QVariant& value) {
                answered(value.value<QDBusVariant>().variant());
            });
    }
    // What has no answer is passed over.
    void wait() {
        auto asked = std::exchange(asked_, {});
        for (auto& [call, answered] : asked) {
            call.waitForFinished();
            if (!call.isError()) answered(call.reply().arguments().value(0));
        }
    }

  private:
    const QDBusConnection& bus_;
    QString program_;
    std::vector<std::pair<QDBusPendingCall, std::function<void(const QVariant&)>>> asked_;
};

bool holds_text(FarRole role) {
    return role == FarRole::text || role == FarRole::password || role == FarRole::spin_button ||
           role == FarRole::paragraph || role == FarRole::document;
}

bool is_of_menu(FarRole role) {
    return role == FarRole::menu_item || role == FarRole::popup_menu || role == FarRole::menu_bar;
}

void ask_about(Reader& reader, FarPart& part) {
    reader.ask(part.path, accessible, "GetRole", {}, [&part](const QVariant& answer) {
        part.role = static_cast<FarRole>(answer.toUInt());
    });
    reader.ask(part.path, accessible, "GetState", {},
               [&part](const QVariant& answer) { part.states = bits(answer); });
    reader.ask_property(part.path, accessible, "Name",
                        [&part](const QVariant& answer) { part.name = answer.toString(); });
    reader.ask_property(part.path, accessible, "Description",
                        [&part](const QVariant& answer) { part.description = answer.toString(); });
}

bool has_parts(const FarPart& part, const FarReading& reading) {
    const bool is_leaf = part.role == FarRole::label || part.role == FarRole::push_button ||
                         part.role == FarRole::table_cell || part.role == FarRole::tree_item ||
                         part.role == FarRole::list_item || part.is_header();
    if (is_leaf || part.is_behind) return false;
    if (is_of_menu(part.role)) return reading.with_menus || part.is(FarState::showing);
    return part.is(FarState::showing) || part.path == root_path;
}

void ask_further(Reader& reader, FarPart& part, const FarReading& reading) {
    if (has_parts(part, reading)) {
        reader.ask(part.path, accessible, "GetChildren", {}, [&part](const QVariant& answer) {
            const auto found = references(answer);
            part.children.resize(std::min(found.size(), most_parts_of_one));
            for (std::size_t i = 0; i < part.children.size(); ++i) {
                part.children[i].path = found[i].second;
            }
        });
    }
    if (holds_text(part.role)) {
        reader.ask(part.path, text_interface, "GetText", {0, -1},
                   [&part](const QVariant& answer) { part.text = answer.toString(); });
    }
    if (part.is_table()) {
        reader.ask_property(part.path, table_interface, "NColumns",
                            [&part](const QVariant& answer) { part.columns = answer.toInt(); });
    }
    const bool wants_label = part.name.isEmpty() || part.role == FarRole::combo_box;
    if (wants_label && part.is(FarState::focusable)) {
        reader.ask(part.path, accessible, "GetRelationSet", {},
                   [&part](const QVariant& answer) { part.labelled_by = labelling_part(answer); });
    }
}

// Each role's name is asked for once.
void name_roles(Reader& reader, const std::vector<FarPart*>& parts) {
    static std::map<FarRole, QString> names;
    for (FarPart* part : parts) {
        if (!names.emplace(part->role, QString()).second) continue;
        reader.ask(part->path, accessible, "GetRoleName", {},
                   [part](const QVariant& answer) { names[part->role] = answer.toString(); });
    }
    reader.wait();
    for (FarPart* part : parts) part->role_name = names[part->role];
}

// From the paths of the labels to their names.
void name_labels(Reader& reader, const std::vector<FarPart*>& parts) {
    for (FarPart* part : parts) {
        if (part->labelled_by.isEmpty()) continue;
        reader.ask_property(std::exchange(part->labelled_by, {}), accessible, "Name",
                            [part](const QVariant& name) { part->labelled_by = name.toString(); });
    }
    reader.wait();
}

QString read_parent(Reader& reader, const QString& path) {
    QString parent;
    reader.ask_property(path, accessible, "Parent", [&parent](const QVariant& answer) {
        const auto reference = answer.value<QDBusArgument>();
        QString program;
        QDBusObjectPath found;
        reference.beginStructure();
        reference >> program >> found;
        reference.endStructure();
        parent = found.path();
    });
    reader.wait();
    return parent;
}

bool has_path(const FarPart& part, const QString& path) {
    return part.path == path ||
           std::any_of(part.children.begin(), part.children.end(),
                       [&path](const FarPart& child) { return has_path(child, path); });
}

void mark_screens_behind(FarPart& area, const QString& front) {
    if (area.role != FarRole::layered_pane) return;
    for (FarPart& screen : area.children) {
        screen.is_behind = screen.role == FarRole::frame && screen.name != front;
    }
}

FarPart read_from(Reader& reader, const QString& path, const FarReading& reading) {
    FarPart root;
    root.path = path;
    std::vector<FarPart*> above;
    std::vector<FarPart*> level{&root};
    while (!level.empty()) {
        for (FarPart* part : level) ask_about(reader, *part);
        reader.wait();
        for (FarPart* part : above) mark_screens_behind(*part, reading.front);
        for (FarPart* part : level) ask_further(reader, *part, reading);
        reader.wait();
        name_labels(reader, level);
        name_roles(reader, level);
        std::vector<FarPart*> beneath;
        for (FarPart* part : level) {
            for (FarPart& child : part->children) beneath.push_back(&child);
        }
        above = std::exchange(level, std::move(beneath));
    }
    return root;
}

}  // namespace

QString far_program(const QDBusConnection& bus) {
    Reader registry(bus, QStringLiteral("org.a11y.atspi.Registry"));
    QString program;
    registry.ask(root_path, accessible, "GetChildren", {}, [&program](const QVariant& answer) {
        const auto found = references(answer);
        if (!found.empty()) program = found.front().first;
    });
    registry.wait();
    return program;
}

FarPart read_far_tree(const QDBusConnection& bus, const QString& program,
                      const FarReading& reading) {
    Reader reader(bus, program);
    return read_from(reader, root_path, reading);
}

FarPart read_far_popup(const QDBusConnection& bus, const QString& program,
                       const QStringList& came_up, const FarPart& known) {
    Reader reader(bus, program);
    for (auto path = came_up.rbegin(); path != came_up.rend(); ++path) {
        const bool is_new = !has_path(known, *path) && has_path(known, read_parent(reader, *path));
        if (is_new) return read_from(reader, *path, {});
    }
    return {};
}

QString written(const FarPart& part, int depth) {
    QString line = QString(2 * depth, QLatin1Char(' ')) + part.role_name;
    const auto add = [&line](const char* what, const QString& words) {
        if (!words.isEmpty())
            line += QLatin1String(what) + QLatin1Char('"') + words + QLatin1Char('"');
    };
    add(" ", part.name);
    add(" labelled by ", part.labelled_by);
    add(" text ", part.text);
    add(" described ", part.description);
    if (part.is(FarState::focusable)) line += QLatin1String(" focusable");
    if (part.is(FarState::checked)) line += QLatin1String(" checked");
    if (!part.is(FarState::showing)) line += QLatin1String(" (out of sight)");
    line.replace(QLatin1Char('\n'), QLatin1String(" / "));
    line += QLatin1Char('\n');
    for (const FarPart& child : part.children) line += written(child, depth + 1);
    return line;
}

}  // namespace tavernook
