#include "ProjectJson.h"

#include "JsonFloat.h"
#include "JsonWriter.h"
#include "model/Cp1252.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <nlohmann/json.hpp>

namespace velto {

using nlohmann::json;

namespace {

// The JSON names in file order, written once for both directions: the dump visitor writes the
// values, the build visitor reads them. The last argument of List says whether an element fits on
// one line.
struct HoursJson {
    template <class Visitor, class Entry> void operator()(Visitor& v, Entry& entry) const {
        v.Field("day", entry.m_time1);
        v.Field("begin", entry.m_time2);
        v.Field("end", entry.m_time3);
        v.Field("assignee", entry.m_str1);
        v.Field("remark", entry.m_str2);
    }
};

struct CostJson {
    template <class Visitor, class Entry> void operator()(Visitor& v, Entry& entry) const {
        v.Field("date", entry.m_timeDate);
        v.Field("quantity", entry.m_fQuantity);
        v.Field("unitPrice", entry.m_fUnitPrice);
        v.Field("amount", entry.m_fAmount);
        v.Field("assignee", entry.m_str1);
        v.Field("remark", entry.m_str2);
    }
};

struct NodeJson {
    template <class Visitor, class Node> void operator()(Visitor& v, Node& node) const {
        v.Field("kind", node.m_nKind);
        v.Field("title", node.m_strTitle);
        v.Field("level", node.m_nLevel);
        v.Field("done", node.m_bDone);
        v.Field("selected", node.m_bSelected);
        v.Field("visible", node.m_bVisible);
        v.Field("expanded", node.m_bExpanded);
        v.Field("start", node.m_timeStart);
        v.Field("due", node.m_timeDue);
        v.Field("note", node.m_strNote);
        v.Field("reminder", node.m_timeReminder);
        v.Field("fontName", node.m_strFontName);
        v.Field("color", node.m_crColor);
        v.Field("strikeOut", node.m_bStrikeOut);
        v.Field("bold", node.m_bBold);
        v.Field("italic", node.m_bItalic);
        v.Field("underline", node.m_bUnderline);
        v.Field("hoursPlanned", node.m_fHoursPlanned);
        v.Field("hoursNeeded", node.m_fHoursNeeded);
        v.Field("hourlyRate", node.m_fHourlyRate);
        v.Field("costPlanned", node.m_fCostPlanned);
        v.Field("costNeeded", node.m_fCostNeeded);
        v.Field("created", node.m_timeCreated);
        v.Field("changed", node.m_timeChanged);
        v.Field("doneTime", node.m_timeDone);
        v.Field("remind1", node.m_nRemind1);
        v.Field("remind2", node.m_nRemind2);
        v.Field("remind3", node.m_nRemind3);
        v.Field("remind4", node.m_nRemind4);
        v.Field("remind5", node.m_nRemind5);
        v.Field("remindTime1", node.m_timeRemind1);
        v.Field("remindTime2", node.m_timeRemind2);
        v.Field("text2", node.m_strText2);
        v.Field("responsible", node.m_strResponsible);
        v.List("hours", node.m_pHours, HoursJson{}, true);
        v.List("costsCalculated", node.m_pCosts, CostJson{}, true);
        v.List("costsNeeded", node.m_pCosts2, CostJson{}, true);
    }
};

template <class Visitor, class Content> void ContentJson(Visitor& v, Content& content) {
    v.Field("chartWidth1", content.view.chartWidth1);
    v.Field("chartWidth2", content.view.chartWidth2);
    v.Field("maximized", content.view.maximized);
    v.Field("windowRect", content.view.windowRect);
    v.Field("zoom", content.view.zoom);
    v.Field("assigneeHistory", content.assigneeHistory);
    v.Field("remarkHistory", content.remarkHistory);
    v.List("nodes", content.firstNode, NodeJson{}, false);
}

// ---- dump ----

class DumpVisitor {
public:
    explicit DumpVisitor(JsonWriter& writer) : m_writer(writer) {}

    template <class T> void Field(const char* name, const T& value) {
        m_writer.Key(name);
        Value(value);
    }

    template <class Item, class Fields>
    void List(const char* name, const Item* head, Fields fields, bool oneLine) {
        m_writer.Key(name);
        m_writer.BeginArray();
        for (; head; head = head->m_pNext)
            Element(*head, fields, oneLine);
        m_writer.EndArray();
    }

    template <class Entry, class Fields>
    void List(const char* name, const EntryList<Entry>& list, Fields fields, bool oneLine) {
        m_writer.Key(name);
        m_writer.BeginArray();
        for (const Entry entry : list)
            Element(entry, fields, oneLine);
        m_writer.EndArray();
    }

private:
    template <class Item, class Fields> void Element(const Item& item, Fields fields, bool oneLine) {
        m_writer.BeginObject(oneLine);
        fields(*this, item);
        m_writer.EndObject();
    }

    void Value(int32_t value) { m_writer.Raw(std::to_string(value)); }
    void Value(uint32_t value) { m_writer.Raw(std::to_string(value)); }
    void Value(CTime value) { Value(value.GetTime()); }
    void Value(float value) { m_writer.Raw(jsonfloat::Format(value)); }
    void Value(std::string_view value) { m_writer.String(cp1252::ToUtf8(value)); }
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

// Reads the fields of one JSON object. The first problem is kept in the shared error text; after
// it, nothing more is read.
class BuildVisitor {
public:
    BuildVisitor(const json& object, std::string path, std::string& error)
        : m_object(object), m_path(std::move(path)), m_error(error) {}

    template <class T> void Field(const char* name, T& value) {
        if (const json* item = Find(name))
            Read(*item, value, name, -1);
    }

    template <class Fields> void List(const char* name, CProjectNode*& head, Fields fields, bool) {
        const json* array = FindArray(name);
        if (!array)
            return;
        CProjectNode** tail = &head;
        CProjectNode* previous = nullptr;
        for (size_t i = 0; i < array->size() && m_error.empty(); ++i) {
            const json& element = (*array)[i];
            if (!element.is_object())
                return Fail(name, int(i), "Objekt erwartet");
            auto* item = new CProjectNode(NodeDefaults{}); // every stored field comes from the JSON
            item->m_pPrev = previous;
            *tail = previous = item;
            tail = &item->m_pNext;
            BuildVisitor inner(element, Where(name, int(i)), m_error);
            fields(inner, *item);
            inner.RejectOtherKeys();
        }
    }

    // The texts of an entry are kept in the visitor of its element until the entry is stored.
    template <class Entry, class Fields>
    void List(const char* name, EntryList<Entry>& list, Fields fields, bool) {
        const json* array = FindArray(name);
        if (!array)
            return;
        typename EntryList<Entry>::Builder builder(array->size());
        for (size_t i = 0; i < array->size() && m_error.empty(); ++i) {
            const json& element = (*array)[i];
            if (!element.is_object())
                return Fail(name, int(i), "Objekt erwartet");
            BuildVisitor inner(element, Where(name, int(i)), m_error);
            Entry entry;
            fields(inner, entry);
            inner.RejectOtherKeys();
            if (m_error.empty() && !builder.Add(entry))
                return Fail(name, int(i), "Texte der Liste länger als 4 GiB");
        }
        list = builder.Finish();
    }

    void RejectOtherKeys() {
        if (!m_error.empty() || m_known.size() == m_object.size())
            return;
        for (const auto& [key, value] : m_object.items())
            if (std::find(m_known.begin(), m_known.end(), key) == m_known.end()) {
                m_error = (m_path.empty() ? "" : m_path + ": ") + "unbekanntes Feld \"" + key + "\"";
                return;
            }
    }

private:
    const json* FindArray(const char* name) {
        const json* array = Find(name);
        if (array && !array->is_array()) {
            Fail(name, -1, "Liste erwartet");
            return nullptr;
        }
        return array;
    }

    const json* Find(const char* name) {
        if (!m_error.empty())
            return nullptr;
        const auto found = m_object.find(name);
        if (found == m_object.end()) {
            Fail(name, -1, "Feld fehlt");
            return nullptr;
        }
        m_known.push_back(name);
        return &*found;
    }

    std::string Where(const char* name, int index) const {
        std::string where = m_path.empty() ? name : m_path + "." + name;
        if (index >= 0)
            where += "[" + std::to_string(index) + "]";
        return where;
    }

    void Fail(const char* name, int index, const std::string& problem) {
        if (m_error.empty())
            m_error = Where(name, index) + ": " + problem;
    }

    template <class Integer> void ReadInteger(const json& item, Integer& value, const char* name, int index) {
        using Limits = std::numeric_limits<Integer>;
        bool fits = false;
        if (item.is_number_unsigned())
            fits = item.get<uint64_t>() <= uint64_t(Limits::max());
        else if (item.is_number_integer())
            fits = item.get<int64_t>() >= int64_t(Limits::min()) &&
                   item.get<int64_t>() <= int64_t(Limits::max());
        if (!fits)
            return Fail(name, index,
                        "ganze Zahl von " + std::to_string(Limits::min()) + " bis " +
                            std::to_string(Limits::max()) + " erwartet");
        value = item.get<Integer>();
    }

    void Read(const json& item, int32_t& value, const char* name, int index) {
        ReadInteger(item, value, name, index);
    }
    void Read(const json& item, uint32_t& value, const char* name, int index) {
        ReadInteger(item, value, name, index);
    }
    void Read(const json& item, CTime& value, const char* name, int index) {
        uint32_t seconds = 0;
        ReadInteger(item, seconds, name, index);
        value = CTime(seconds);
    }
    void Read(const json& item, float& value, const char* name, int index) {
        switch (jsonfloat::Parse(item, value)) {
        case jsonfloat::ParseError::None:
            return;
        case jsonfloat::ParseError::NotAFloat:
            return Fail(name, index,
                        "Zahl oder \"NaN\", \"Infinity\", \"-Infinity\", \"NaN(0x...)\" erwartet");
        case jsonfloat::ParseError::OutOfRange:
            return Fail(name, index, "Zahl außerhalb des Bereichs einer 32-Bit-Gleitkommazahl");
        }
    }
    void Read(const json& item, SharedText& value, const char* name, int index) {
        std::string text;
        Read(item, text, name, index);
        value = text;
    }
    void Read(const json& item, std::string_view& value, const char* name, int index) {
        Read(item, m_texts.emplace_back(), name, index);
        value = m_texts.back();
    }
    void Read(const json& item, std::string& value, const char* name, int index) {
        if (!item.is_string())
            return Fail(name, index, "Text erwartet");
        std::optional<std::string> text = cp1252::FromUtf8(item.get_ref<const std::string&>());
        if (!text)
            return Fail(name, index, "Text enthält Zeichen, die Windows-1252 nicht darstellen kann");
        value = std::move(*text);
    }
    template <class T, size_t N>
    void Read(const json& item, std::array<T, N>& values, const char* name, int) {
        if (!item.is_array() || item.size() != N)
            return Fail(name, -1, "Liste mit " + std::to_string(N) + " Werten erwartet");
        for (size_t i = 0; i < N; ++i)
            Read(item[i], values[i], name, int(i));
    }

    const json& m_object;
    std::string m_path;
    std::string& m_error;
    std::vector<std::string_view> m_known;
    std::deque<std::string> m_texts;
};

} // namespace

void WriteProjectJson(const ProjectContent& content, std::ostream& out) {
    JsonWriter writer(out);
    DumpVisitor visitor(writer);
    writer.BeginObject();
    ContentJson(visitor, content);
    writer.EndObject();
}

bool ProjectFromJson(std::string_view text, ProjectContent& content, std::string& error) {
    json root;
    try {
        root = json::parse(text);
    } catch (const json::parse_error& e) {
        error = std::string("kein gültiges JSON: ") + e.what();
        return false;
    }
    if (!root.is_object()) {
        error = "kein JSON-Objekt";
        return false;
    }
    ProjectContent built;
    error.clear();
    BuildVisitor visitor(root, "", error);
    ContentJson(visitor, built);
    visitor.RejectOtherKeys();
    if (!error.empty())
        return false;
    content = std::move(built);
    return true;
}

} // namespace velto
