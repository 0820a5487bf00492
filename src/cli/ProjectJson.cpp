#include "ProjectJson.h"

#include "JsonFloat.h"
#include "JsonWriter.h"
#include "model/NodeList.h"

#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <limits>
#include <optional>
#include <tuple>
#include <vector>

namespace velto {

namespace {

// ---- the JSON names in file order, written once for both directions ----

template <class Member> struct Field {
    const char* name;
    Member member; // a pointer to a data member, or a function giving the member
};

// A list of objects: the nodes, or the entries of a node. oneLine: an element fits on one line.
template <class Member> struct List {
    const char* name;
    Member member;
    bool oneLine;
};

// A value of the window part of the project.
template <class T> struct InView {
    T ProjectViewValues::*member;
    T& operator()(ProjectContent& content) const { return content.view.*member; }
    const T& operator()(const ProjectContent& content) const { return content.view.*member; }
};

// Spelled out for compilers without deduction for aggregates.
template <class Member> Field(const char*, Member) -> Field<Member>;
template <class Member> List(const char*, Member, bool) -> List<Member>;
template <class T> InView(T ProjectViewValues::*) -> InView<T>;

template <class Object> struct JsonFields;

template <> struct JsonFields<CHoursEntry> {
    static constexpr auto kFields =
        std::tuple(Field{"day", &CHoursEntry::m_time1}, Field{"begin", &CHoursEntry::m_time2},
                   Field{"end", &CHoursEntry::m_time3}, Field{"assignee", &CHoursEntry::m_str1},
                   Field{"remark", &CHoursEntry::m_str2});
};

template <> struct JsonFields<CCostEntry> {
    static constexpr auto kFields =
        std::tuple(Field{"date", &CCostEntry::m_timeDate}, Field{"quantity", &CCostEntry::m_fQuantity},
                   Field{"unitPrice", &CCostEntry::m_fUnitPrice}, Field{"amount", &CCostEntry::m_fAmount},
                   Field{"assignee", &CCostEntry::m_str1}, Field{"remark", &CCostEntry::m_str2});
};

template <> struct JsonFields<CProjectNode> {
    using N = CProjectNode;
    static constexpr auto kFields = std::tuple(
        Field{"kind", &N::m_nKind}, Field{"title", &N::m_strTitle}, Field{"level", &N::m_nLevel},
        Field{"done", &N::m_bDone}, Field{"selected", &N::m_bSelected}, Field{"visible", &N::m_bVisible},
        Field{"expanded", &N::m_bExpanded}, Field{"start", &N::m_timeStart}, Field{"due", &N::m_timeDue},
        Field{"note", &N::m_strNote}, Field{"reminder", &N::m_timeReminder},
        Field{"fontName", &N::m_strFontName}, Field{"color", &N::m_crColor},
        Field{"strikeOut", &N::m_bStrikeOut}, Field{"bold", &N::m_bBold}, Field{"italic", &N::m_bItalic},
        Field{"underline", &N::m_bUnderline}, Field{"hoursPlanned", &N::m_fHoursPlanned},
        Field{"hoursNeeded", &N::m_fHoursNeeded}, Field{"hourlyRate", &N::m_fHourlyRate},
        Field{"costPlanned", &N::m_fCostPlanned}, Field{"costNeeded", &N::m_fCostNeeded},
        Field{"created", &N::m_timeCreated}, Field{"changed", &N::m_timeChanged},
        Field{"doneTime", &N::m_timeDone}, Field{"remind1", &N::m_nRemind1}, Field{"remind2", &N::m_nRemind2},
        Field{"remind3", &N::m_nRemind3}, Field{"remind4", &N::m_nRemind4}, Field{"remind5", &N::m_nRemind5},
        Field{"remindTime1", &N::m_timeRemind1}, Field{"remindTime2", &N::m_timeRemind2},
        Field{"text2", &N::m_strText2}, Field{"responsible", &N::m_strResponsible},
        List{"hours", &N::m_pHours, true}, List{"costsCalculated", &N::m_pCosts, true},
        List{"costsNeeded", &N::m_pCosts2, true});
};

template <> struct JsonFields<ProjectContent> {
    using V = ProjectViewValues;
    static constexpr auto kFields = std::tuple(
        Field{"chartWidth1", InView{&V::chartWidth1}}, Field{"chartWidth2", InView{&V::chartWidth2}},
        Field{"maximized", InView{&V::maximized}}, Field{"windowRect", InView{&V::windowRect}},
        Field{"zoom", InView{&V::zoom}}, Field{"assigneeHistory", &ProjectContent::assigneeHistory},
        Field{"remarkHistory", &ProjectContent::remarkHistory},
        List{"nodes", &ProjectContent::firstNode, false});
};

template <class Object>
constexpr size_t kFieldCount = std::tuple_size_v<decltype(JsonFields<Object>::kFields)>;

template <class Object>
constexpr auto kNamesOf = std::apply(
    [](const auto&... member) { return std::array<std::string_view, sizeof...(member)>{member.name...}; },
    JsonFields<Object>::kFields);

// ---- dump ----

class Dumper {
public:
    explicit Dumper(JsonWriter& writer) : m_writer(writer) {}

    template <class Object> void Fields(const Object& object) {
        std::apply([&](const auto&... member) { (Member(object, member), ...); },
                   JsonFields<Object>::kFields);
    }

private:
    template <class Object, class M> void Member(const Object& object, const Field<M>& field) {
        m_writer.Key(field.name);
        Value(std::invoke(field.member, object));
    }

    template <class Object, class M> void Member(const Object& object, const List<M>& list) {
        m_writer.Key(list.name);
        m_writer.BeginArray();
        ForEach(std::invoke(list.member, object), [&](const auto& element) {
            m_writer.BeginObject(list.oneLine);
            Fields(element);
            m_writer.EndObject();
        });
        m_writer.EndArray();
    }

    template <class Each> static void ForEach(const CProjectNode* head, Each each) {
        for (; head; head = head->m_pNext)
            each(*head);
    }
    template <class Entry, class Each> static void ForEach(const EntryList<Entry>& list, Each each) {
        for (const Entry entry : list)
            each(entry);
    }

    void Value(int32_t value) { m_writer.Raw(std::to_string(value)); }
    void Value(uint32_t value) { m_writer.Raw(std::to_string(value)); }
    void Value(CTime value) { Value(value.GetTime()); }
    void Value(float value) { m_writer.Raw(jsonfloat::Format(value)); }
    void Value(std::string_view value) { m_writer.String(value); }
    void Value(const SharedText& value) { Value(value.str()); }
    template <class T, size_t N> void Value(const std::array<T, N>& values) {
        m_writer.BeginArray(true);
        for (const T& value : values)
            Value(value);
        m_writer.EndArray();
    }

    JsonWriter& m_writer;
};

// ---- build ----

// Reads the values straight from the JSON reader into the project. Each read consumes its value
// and gives its problem as the message to show, or "" when there is none. After the first problem
// in a list the rest of the list is only checked, not built.
class Builder {
public:
    explicit Builder(JsonReader& reader) : m_reader(reader) {}

    // The object at the reader into object. Its problem is that of the first field in field order:
    // the field missing or its value wrong; then the smallest unknown key in byte order.
    template <class Object> std::string ReadObject(Object& object) {
        constexpr size_t count = kFieldCount<Object>;
        std::array<bool, count> seen{};
        std::vector<std::pair<size_t, std::string>> problems;
        std::optional<std::string> unknown;
        size_t expected = 0; // keys usually come in field order
        m_reader.Enter();
        for (bool first = true; m_reader.NextMember(first, m_key); first = false) {
            const size_t index = FieldIndex(kNamesOf<Object>, m_key, expected);
            if (index == count) {
                if (!unknown || m_key < *unknown)
                    unknown = std::string(m_key);
                m_reader.SkipValue();
                continue;
            }
            expected = index + 1;
            seen[index] = true;
            std::erase_if(problems, [index](const auto& problem) { return problem.first == index; });
            if (std::string problem = (this->*kReadersOf<Object>[index])(object); !problem.empty())
                problems.emplace_back(index, std::move(problem));
        }
        for (size_t index = 0; index < count; ++index) {
            if (!seen[index])
                return Where(kNamesOf<Object>[index].data()) + ": Feld fehlt";
            for (auto& [field, problem] : problems)
                if (field == index)
                    return problem;
        }
        if (unknown)
            return (m_path.empty() ? "" : Where(nullptr) + ": ") + "unbekanntes Feld \"" + *unknown + "\"";
        return {};
    }

private:
    // The place of a list element, for messages.
    struct Step {
        const char* list;
        size_t index;
    };

    template <size_t N>
    static size_t FieldIndex(const std::array<std::string_view, N>& names, std::string_view key,
                             size_t expected) {
        if (expected < N && names[expected] == key)
            return expected;
        return size_t(std::find(names.begin(), names.end(), key) - names.begin());
    }

    template <class Object, size_t I> std::string ReadField(Object& object) {
        return Read(object, std::get<I>(JsonFields<Object>::kFields));
    }
    template <class Object, size_t... I> static constexpr auto ReadersOf(std::index_sequence<I...>) {
        return std::array{&Builder::ReadField<Object, I>...};
    }
    // The function that reads each field, by its place.
    template <class Object>
    static constexpr auto kReadersOf = ReadersOf<Object>(std::make_index_sequence<kFieldCount<Object>>());

    template <class Object, class M> std::string Read(Object& object, const Field<M>& field) {
        return ReadValue(std::invoke(field.member, object), field.name, -1);
    }
    template <class Object, class M> std::string Read(Object& object, const List<M>& list) {
        return ReadList(std::invoke(list.member, object), list.name);
    }

    // The path of a field (or, without a name, of the object being read): nodes[3].hours[1].remark.
    std::string Where(const char* name, int index = -1) const {
        std::string where;
        const auto add = [&where](const char* part, int subscript) {
            if (!where.empty())
                where += '.';
            where += part;
            if (subscript >= 0)
                where.append("[").append(std::to_string(subscript)).append("]");
        };
        for (const Step& step : m_path)
            add(step.list, int(step.index));
        if (name)
            add(name, index);
        return where;
    }

    template <class Integer> std::string ReadInteger(Integer& value, const char* name, int index) {
        using Limits = std::numeric_limits<Integer>;
        if (m_reader.Peek() == JsonKind::Number) {
            JsonNumber number;
            m_reader.ReadNumber(number);
            if (number.kind == JsonNumber::Kind::Unsigned &&
                number.unsignedValue <= uint64_t(Limits::max())) {
                value = Integer(number.unsignedValue);
                return {};
            }
            if (number.kind == JsonNumber::Kind::Signed && number.signedValue >= int64_t(Limits::min()) &&
                number.signedValue <= int64_t(Limits::max())) {
                value = Integer(number.signedValue);
                return {};
            }
        } else {
            m_reader.SkipValue();
        }
        return Where(name, index) + ": ganze Zahl von " + std::to_string(Limits::min()) + " bis " +
               std::to_string(Limits::max()) + " erwartet";
    }

    std::string ReadValue(int32_t& value, const char* name, int index) {
        return ReadInteger(value, name, index);
    }
    std::string ReadValue(uint32_t& value, const char* name, int index) {
        return ReadInteger(value, name, index);
    }
    std::string ReadValue(CTime& value, const char* name, int index) {
        uint32_t seconds = 0;
        std::string problem = ReadInteger(seconds, name, index);
        value = CTime(seconds);
        return problem;
    }

    std::string ReadValue(float& value, const char* name, int index) {
        jsonfloat::ParseError result = jsonfloat::ParseError::NotAFloat;
        switch (m_reader.Peek()) {
        case JsonKind::Number: {
            JsonNumber number;
            m_reader.ReadNumber(number);
            result = jsonfloat::FromNumber(number.AsDouble(), value);
            break;
        }
        case JsonKind::String:
            m_reader.ReadUtf8(m_text);
            result = jsonfloat::FromString(m_text, value);
            break;
        default:
            m_reader.SkipValue();
        }
        switch (result) {
        case jsonfloat::ParseError::None:
            return {};
        case jsonfloat::ParseError::NotAFloat:
            return Where(name, index) +
                   ": Zahl oder \"NaN\", \"Infinity\", \"-Infinity\", \"NaN(0x...)\" erwartet";
        case jsonfloat::ParseError::OutOfRange:
            break;
        }
        return Where(name, index) + ": Zahl außerhalb des Bereichs einer 32-Bit-Gleitkommazahl";
    }

    std::string ReadValue(std::string& value, const char* name, int index) {
        if (m_reader.Peek() != JsonKind::String) {
            m_reader.SkipValue();
            return Where(name, index) + ": Text erwartet";
        }
        if (!m_reader.ReadText(value))
            return Where(name, index) + ": Text enthält Zeichen, die Windows-1252 nicht darstellen kann";
        return {};
    }
    std::string ReadValue(SharedText& value, const char* name, int index) {
        std::string problem = ReadValue(m_text, name, index);
        value = SharedText(m_text);
        return problem;
    }
    // An entry's text stays in the builder until its list is made.
    std::string ReadValue(std::string_view& value, const char* name, int index) {
        if (m_entryTextsUsed == m_entryTexts.size())
            m_entryTexts.emplace_back();
        std::string& text = m_entryTexts[m_entryTextsUsed++];
        std::string problem = ReadValue(text, name, index);
        value = text;
        return problem;
    }

    // A list of a fixed length: the length is checked before the values.
    template <class T, size_t N> std::string ReadValue(std::array<T, N>& values, const char* name, int) {
        std::string problem;
        size_t count = 0;
        if (m_reader.Peek() == JsonKind::Array) {
            m_reader.Enter();
            for (bool first = true; m_reader.NextElement(first); first = false, ++count) {
                if (count >= N) {
                    m_reader.SkipValue();
                } else if (std::string wrong = ReadValue(values[count], name, int(count)); problem.empty()) {
                    problem = std::move(wrong);
                }
            }
        } else {
            m_reader.SkipValue();
        }
        return count == N ? problem : Where(name) + ": Liste mit " + std::to_string(N) + " Werten erwartet";
    }

    std::string ReadList(CProjectNode*& head, const char* name) {
        FreeNodeList(std::exchange(head, nullptr)); // of a repeated key the last list counts
        CProjectNode** tail = &head;
        CProjectNode* previous = nullptr;
        return ReadElements(name, [&] {
            auto* node = new CProjectNode(NodeDefaults{}); // every stored field comes from the JSON
            node->m_pPrev = previous;
            *tail = previous = node;
            tail = &node->m_pNext;
            return ReadObject(*node);
        });
    }

    template <class Entry> std::string ReadList(EntryList<Entry>& list, const char* name) {
        std::vector<Entry>& entries = EntriesBeingRead<Entry>();
        entries.clear();
        m_entryTextsUsed = 0;
        if (std::string problem = ReadElements(name, [&] { return ReadObject(entries.emplace_back()); });
            !problem.empty())
            return problem;
        typename EntryList<Entry>::Builder builder(entries.size());
        for (size_t i = 0; i < entries.size(); ++i)
            if (!builder.Add(entries[i]))
                return Where(name, int(i)) + ": Texte der Liste länger als 4 GiB";
        list = builder.Finish();
        return {};
    }

    template <class ReadElement> std::string ReadElements(const char* name, ReadElement readElement) {
        if (m_reader.Peek() != JsonKind::Array) {
            m_reader.SkipValue();
            return Where(name) + ": Liste erwartet";
        }
        std::string problem;
        size_t index = 0;
        m_reader.Enter();
        for (bool first = true; m_reader.NextElement(first); first = false, ++index) {
            if (!problem.empty()) {
                m_reader.SkipValue();
            } else if (m_reader.Peek() != JsonKind::Object) {
                m_reader.SkipValue();
                problem = Where(name, int(index)) + ": Objekt erwartet";
            } else {
                m_path.push_back({name, index});
                problem = readElement();
                m_path.pop_back();
            }
        }
        return problem;
    }

    template <class Entry> std::vector<Entry>& EntriesBeingRead() {
        if constexpr (std::is_same_v<Entry, CHoursEntry>)
            return m_hours;
        else
            return m_costs;
    }

    JsonReader& m_reader;
    std::vector<Step> m_path;
    std::string_view m_key;
    std::string m_text;
    // The entries of the list being read and their texts; reused from list to list.
    std::vector<CHoursEntry> m_hours;
    std::vector<CCostEntry> m_costs;
    std::deque<std::string> m_entryTexts;
    size_t m_entryTextsUsed = 0;
};

} // namespace

void WriteProjectJson(const ProjectContent& content, std::ostream& out) {
    JsonWriter writer(out);
    writer.BeginObject();
    Dumper(writer).Fields(content);
    writer.EndObject();
}

bool ProjectFromJson(const JsonPieceReader& read, ProjectContent& content, std::string& error) {
    JsonReader reader(read);
    ProjectContent built;
    std::string problem = "kein JSON-Objekt";
    if (reader.Peek() == JsonKind::Object)
        problem = Builder(reader).ReadObject(built);
    else
        reader.SkipValue();
    reader.ExpectEnd();
    // A text that is no JSON at all says so first, whatever else is wrong in it.
    if (reader.Failed())
        problem = "kein gültiges JSON: " + reader.Error();
    if (!problem.empty()) {
        error = problem;
        return false;
    }
    content = std::move(built);
    return true;
}

} // namespace velto
