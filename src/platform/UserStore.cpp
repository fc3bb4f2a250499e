#include "platform/UserStore.h"

#include <pwd.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>

namespace {

// Section and key names compare without regard to case (ASCII); `value` has no type, so that each keeps its own.
constexpr const char *kSchema = R"(
    CREATE TABLE IF NOT EXISTS section (name TEXT PRIMARY KEY COLLATE NOCASE) WITHOUT ROWID;
    CREATE TABLE IF NOT EXISTS setting (section TEXT COLLATE NOCASE, key TEXT COLLATE NOCASE, value,
                                        PRIMARY KEY (section, key)) WITHOUT ROWID;
)";
constexpr int kBusyLimit = 3000;  // ms that a call waits for another process's write

bool MeansNoStore(int result) { return (result & 0xFF) == SQLITE_NOTADB || (result & 0xFF) == SQLITE_CORRUPT; }

class CStatement {
public:
    CStatement(sqlite3 *database, const char *text) {
        result_ = sqlite3_prepare_v2(database, text, -1, &statement_, nullptr);
    }
    ~CStatement() { sqlite3_finalize(statement_); }
    CStatement(const CStatement &) = delete;
    CStatement &operator=(const CStatement &) = delete;

    void Bind(int place, const std::string &text) {
        if (statement_) sqlite3_bind_text64(statement_, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void Bind(int place, int32_t number) {
        if (statement_) sqlite3_bind_int(statement_, place, number);
    }
    void Bind(int place, const std::vector<uint8_t> &bytes) {
        // A null pointer would store NULL instead of an empty value.
        const void *data = bytes.empty() ? "" : static_cast<const void *>(bytes.data());
        if (statement_) sqlite3_bind_blob64(statement_, place, data, bytes.size(), SQLITE_TRANSIENT);
    }
    int Step() {
        if (statement_) result_ = sqlite3_step(statement_);
        return result_;
    }
    sqlite3_stmt *Get() const { return statement_; }

private:
    sqlite3_stmt *statement_ = nullptr;
    int result_;
};

bool MakeDirectories(const std::string &path) {
    if (path.empty() || mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return true;
    if (errno != ENOENT) return false;
    return MakeDirectories(path.substr(0, path.rfind('/') == path.npos ? 0 : path.rfind('/'))) &&
           (mkdir(path.c_str(), 0700) == 0 || errno == EEXIST);
}

bool Exists(const std::string &path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// Puts a file that is no store aside under a free name, with what belongs to it.
bool PutAside(const std::string &path) {
    std::string aside = path + ".broken";
    for (int number = 2; Exists(aside); ++number) aside = path + ".broken." + std::to_string(number);
    for (const char *tail : {"-wal", "-journal"}) rename((path + tail).c_str(), (aside + tail).c_str());
    unlink((path + "-shm").c_str());
    return rename(path.c_str(), aside.c_str()) == 0;
}

}  // namespace

struct CUserStore::Impl {
    enum class State { closed, open, broken };

    std::string path;
    bool readOnly = false;
    bool lastWriteFailed = false;
    bool logged = false;  // the open database was asked for its write-ahead log
    State state = State::closed;
    sqlite3 *database = nullptr;

    ~Impl() { Close(State::closed); }

    void Close(State next) {
        sqlite3_close(database);
        database = nullptr;
        logged = false;
        state = next;
    }

    int Run(const char *text) { return sqlite3_exec(database, text, nullptr, nullptr, nullptr); }

    int OpenAs(const std::string &name, int flags) {
        int result = sqlite3_open_v2(name.c_str(), &database, flags, nullptr);
        if (result != SQLITE_OK) return result;
        sqlite3_busy_timeout(database, kBusyLimit);
        return Run("SELECT count(*) FROM sqlite_master");
    }

    // Opens what is there; false when nothing is, or it is no store.
    bool OpenForReading() {
        if (state == State::open) return true;
        if (state == State::broken || !Exists(path)) return false;
        int result = readOnly ? OpenAs(path, SQLITE_OPEN_READONLY) : OpenAs(path, SQLITE_OPEN_READWRITE);
        if (result != SQLITE_OK && !MeansNoStore(result) && !readOnly) {
            Close(State::closed);
            result = OpenAs(path, SQLITE_OPEN_READONLY);
        }
        if (result != SQLITE_OK && !MeansNoStore(result)) {
            // A store copied into a directory that may not be written: its write-ahead log can't be shared.
            Close(State::closed);
            result = OpenAs(ImmutableName(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
        }
        if (result == SQLITE_OK) {
            state = State::open;
            return true;
        }
        Close(MeansNoStore(result) ? State::broken : State::closed);
        return false;
    }

    std::string ImmutableName() const {
        std::string name = "file:";
        for (const char c : path) {
            if (c == '%' || c == '?' || c == '#') {
                constexpr char digits[] = "0123456789ABCDEF";
                name += {'%', digits[(c >> 4) & 15], digits[c & 15]};
            } else {
                name += c;
            }
        }
        return name + "?immutable=1";
    }

    bool OpenForWriting() {
        if (readOnly) return false;
        OpenForReading();
        if (state == State::broken) {
            if (!PutAside(path)) return false;
            state = State::closed;
        }
        if (state == State::open && sqlite3_db_readonly(database, "main")) Close(State::closed);
        if (state == State::closed) {
            const size_t slash = path.rfind('/');
            if (slash != path.npos && !MakeDirectories(path.substr(0, slash))) return false;
            if (OpenAs(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE) != SQLITE_OK) {
                Close(State::closed);
                return false;
            }
            state = State::open;
        }
        if (sqlite3_db_readonly(database, "main")) return false;
        if (!logged) {
            // The log keeps every committed write when the process is killed, without a disk flush for each. Where the
            // file system can't share it, SQLite keeps to its journal.
            Run("PRAGMA journal_mode = WAL");
            Run("PRAGMA synchronous = NORMAL");
            logged = true;
        }
        return true;
    }

    // Runs `edit` (which gives SQLite's result) as one transaction.
    template <typename Edit>
    bool Write(Edit edit) {
        bool good = false;
        for (int attempt = 0; attempt < 2 && !good; ++attempt) {
            if (!OpenForWriting()) break;
            int result = Run("BEGIN IMMEDIATE");
            if (result == SQLITE_OK) result = Run(kSchema);
            if (result == SQLITE_OK) result = edit();
            if (result == SQLITE_OK) result = Run("COMMIT");
            good = result == SQLITE_OK;
            if (good) break;
            Run("ROLLBACK");
            if (!MeansNoStore(result)) break;
            Close(State::broken);
        }
        lastWriteFailed = !good;
        return good;
    }

    int AddSection(const std::string &section) {
        // A section "A\B" brings its "A" into being.
        for (size_t end = section.find('\\');; end = section.find('\\', end + 1)) {
            CStatement add(database, "INSERT OR IGNORE INTO section VALUES (?1)");
            add.Bind(1, section.substr(0, end));
            if (const int result = add.Step(); result != SQLITE_DONE) return result;
            if (end == section.npos) return SQLITE_OK;
        }
    }

    template <typename Value>
    bool WriteValue(const std::string &section, const std::string &key, const Value &value) {
        return Write([&] {
            if (const int result = AddSection(section); result != SQLITE_OK) return result;
            CStatement set(database, "INSERT OR REPLACE INTO setting VALUES (?1, ?2, ?3)");
            set.Bind(1, section);
            set.Bind(2, key);
            set.Bind(3, value);
            const int result = set.Step();
            return result == SQLITE_DONE ? SQLITE_OK : result;
        });
    }

    // Gives the statement standing on the value to `take` when there is one of `type`.
    template <typename Take>
    void Read(const std::string &section, const std::string &key, int type, Take take) {
        if (!OpenForReading()) return;
        CStatement get(database, "SELECT value FROM setting WHERE section = ?1 AND key = ?2");
        get.Bind(1, section);
        get.Bind(2, key);
        if (get.Step() == SQLITE_ROW && sqlite3_column_type(get.Get(), 0) == type) take(get.Get());
    }
};

CUserStore::CUserStore(std::string nativePath, bool readOnly) : impl_(std::make_unique<Impl>()) {
    impl_->path = std::move(nativePath);
    impl_->readOnly = readOnly;
}

CUserStore::~CUserStore() = default;

bool CUserStore::HasSection(const std::string &section) const {
    if (!impl_->OpenForReading()) return false;
    CStatement find(impl_->database, "SELECT 1 FROM section WHERE name = ?1");
    find.Bind(1, section);
    return find.Step() == SQLITE_ROW;
}

std::optional<int32_t> CUserStore::ReadInt(const std::string &section, const std::string &key) const {
    std::optional<int32_t> value;
    impl_->Read(section, key, SQLITE_INTEGER, [&](sqlite3_stmt *row) {
        const int64_t number = sqlite3_column_int64(row, 0);
        if (number >= std::numeric_limits<int32_t>::min() && number <= std::numeric_limits<int32_t>::max())
            value = static_cast<int32_t>(number);
    });
    return value;
}

std::optional<std::string> CUserStore::ReadString(const std::string &section, const std::string &key) const {
    std::optional<std::string> value;
    impl_->Read(section, key, SQLITE_TEXT, [&](sqlite3_stmt *row) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(row, 0));
        if (text) value.emplace(text, static_cast<size_t>(sqlite3_column_bytes(row, 0)));
    });
    return value;
}

std::optional<std::vector<uint8_t>> CUserStore::ReadBinary(const std::string &section, const std::string &key) const {
    std::optional<std::vector<uint8_t>> value;
    impl_->Read(section, key, SQLITE_BLOB, [&](sqlite3_stmt *row) {
        const auto *bytes = static_cast<const uint8_t *>(sqlite3_column_blob(row, 0));
        value.emplace(bytes, bytes + sqlite3_column_bytes(row, 0));
    });
    return value;
}

bool CUserStore::WriteInt(const std::string &section, const std::string &key, int32_t value) {
    return impl_->WriteValue(section, key, value);
}

bool CUserStore::WriteString(const std::string &section, const std::string &key, const std::string &value) {
    return impl_->WriteValue(section, key, value);
}

bool CUserStore::WriteBinary(const std::string &section, const std::string &key, const std::vector<uint8_t> &value) {
    return impl_->WriteValue(section, key, value);
}

bool CUserStore::DeleteKey(const std::string &section, const std::string &key) {
    if (!impl_->readOnly && !Exists(impl_->path)) return true;
    return impl_->Write([&] {
        CStatement remove(impl_->database, "DELETE FROM setting WHERE section = ?1 AND key = ?2");
        remove.Bind(1, section);
        remove.Bind(2, key);
        const int result = remove.Step();
        return result == SQLITE_DONE ? SQLITE_OK : result;
    });
}

bool CUserStore::DeleteSection(const std::string &section) {
    if (!impl_->readOnly && !Exists(impl_->path)) return true;
    return impl_->Write([&] {
        // From "<section>\" up to "<section>]", the next character: all names below it.
        for (const char *text : {"DELETE FROM setting WHERE section = ?1 OR (section >= ?2 AND section < ?3)",
                                 "DELETE FROM section WHERE name = ?1 OR (name >= ?2 AND name < ?3)"}) {
            CStatement remove(impl_->database, text);
            remove.Bind(1, section);
            remove.Bind(2, section + "\\");
            remove.Bind(3, section + "]");
            if (const int result = remove.Step(); result != SQLITE_DONE) return result;
        }
        return SQLITE_OK;
    });
}

bool CUserStore::IsWritable() const { return !impl_->readOnly && !impl_->lastWriteFailed; }

namespace {

// A directory of the settings' environment variables counts only when it is absolute.
std::string FirstAbsolute(const char *list) {
    std::string_view rest = list ? list : "";
    while (!rest.empty()) {
        const size_t colon = std::min(rest.find(':'), rest.size());
        if (rest.front() == '/') return std::string(rest.substr(0, colon));
        rest.remove_prefix(std::min(colon + 1, rest.size()));
    }
    return {};
}

std::string HomeDirectory() {
    if (const char *home = getenv("HOME"); home && *home == '/') return home;
    const passwd *user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

std::string StoreFile(const std::string &directory, std::string profile) {
    std::replace(profile.begin(), profile.end(), '/', '_');
    return directory + "/ThornwellIDE/" + profile + ".db";
}

}  // namespace

std::string UserStorePath(const std::string &profile) {
    const char *given = getenv("XDG_CONFIG_HOME");
    return StoreFile(given && *given == '/' ? std::string(given) : HomeDirectory() + "/.config", profile);
}

std::string MachineStorePath(const std::string &profile) {
    const std::string given = FirstAbsolute(getenv("XDG_CONFIG_DIRS"));
    return StoreFile(given.empty() ? "/etc/xdg" : given, profile);
}
