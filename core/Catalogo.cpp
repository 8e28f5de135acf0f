#include "Catalogo.h"

#include "FileSystem.h"
#include "ModBase.h"
#include "RuntimeError.h"
#include "UserInteraction.h"

#include <QAtomicInt>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace {

// The highest id a catalogue may have; a larger one would only make an
// enormous, almost empty table.
constexpr int kMaxId = 1000000;

// One connection per load, closed at its end: Textos is all that lives on.
class Conexion {
public:
    explicit Conexion(const QString& path)
    {
        static QAtomicInt counter;
        m_name = QStringLiteral("korvo-catalogue-%1").arg(counter.fetchAndAddRelaxed(1));
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        db.setDatabaseName(path);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (!db.open())
            throw RuntimeError(3051, QStringLiteral("Couldn't open the file '%1'.").arg(path));
    }
    ~Conexion()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }
    QSqlDatabase db() const { return QSqlDatabase::database(m_name, false); }

private:
    QString m_name;
};

// A select that the database refuses: a table or a column that is not there.
[[noreturn]] void errorDeConsulta(const QSqlQuery& q)
{
    const QString why = q.lastError().databaseText();
    if (why.contains(QLatin1String("no such column")))
        throw RuntimeError(3061, QStringLiteral("Too few parameters. Expected 1."));
    if (why.contains(QLatin1String("no such table")))
        throw RuntimeError(3078,
                           QStringLiteral("The input table or query 'texts' cannot be found."));
    throw RuntimeError(3000, QStringLiteral("Reserved error: %1").arg(why));
}

QString unescape(const QString& s, bool* ok)
{
    QString out;
    out.reserve(s.size());
    for (int i = 0; i < s.size(); ++i) {
        const QChar c = s.at(i);
        if (c != QLatin1Char('\\')) {
            out.append(c);
            continue;
        }
        const QChar next = i + 1 < s.size() ? s.at(i + 1) : QChar();
        if (next == QLatin1Char('n'))
            out.append(QLatin1Char('\n'));
        else if (next == QLatin1Char('t'))
            out.append(QLatin1Char('\t'));
        else if (next == QLatin1Char('\\'))
            out.append(QLatin1Char('\\'));
        else
            *ok = false;
        ++i;
    }
    return out;
}

} // namespace

int16_t CargarTextos(ModBase& mb, int16_t idioma)
{
    const QString columna = QStringLiteral("text") + QString::number(idioma);
    const QString path = fs::inDataDir(mb, QStringLiteral("lang/lang.db"));
    if (!fs::fileExists(path))
        return -1;

    Conexion conexion(path);
    QSqlQuery q(conexion.db());
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("select max(id) as mID from texts")))
        errorDeConsulta(q);
    if (!q.next())
        throw RuntimeError::invalidUseOfNull();
    const QVariant maximo = q.value(q.record().indexOf(QStringLiteral("mid")));
    if (maximo.isNull())
        throw RuntimeError::invalidUseOfNull();
    bool ok = false;
    const qlonglong upper = maximo.toLongLong(&ok);
    if (!ok)
        throw RuntimeError::typeMismatch();
    if (upper > kMaxId)
        throw RuntimeError::outOfMemory();
    if (upper < 0)
        throw RuntimeError::subscriptOutOfRange();

    // The new table is filled aside, so a failure half-way leaves no mixture
    // of two languages behind (the program ends then anyway).
    TextTable textos;
    textos.redim(static_cast<int>(upper));
    q.finish();
    if (!q.exec(QStringLiteral("select id,") + columna + QStringLiteral(" from texts")))
        errorDeConsulta(q);
    while (q.next()) {
        const QVariant id = q.value(0);
        const QVariant text = q.value(1);
        if (id.isNull() || text.isNull())
            throw RuntimeError::invalidUseOfNull();
        const qlonglong n = id.toLongLong(&ok);
        if (!ok)
            throw RuntimeError::typeMismatch();
        if (n < 0 || n > upper)
            throw RuntimeError::subscriptOutOfRange();
        textos.set(static_cast<int>(n), text.toString());
    }
    q.finish();
    mb.Textos = std::move(textos);
    return 0;
}

void CambiarIdioma(ModBase& mb, int16_t idioma, WindowRefresh& window)
{
    CargarTextos(mb, idioma); // a missing database keeps the texts in force
    window.refresh();
    mb.Idioma = idioma;
}

CatalogueSource parseCatalogueSource(const QByteArray& utf8)
{
    CatalogueSource source;
    const QList<QByteArray> lines = utf8.split('\n');
    int previous = -1;
    for (int i = 0; i < lines.size(); ++i) {
        const int lineNo = i + 1;
        QByteArray raw = lines.at(i);
        if (raw.endsWith('\r'))
            raw.chop(1);
        if (i == 0 || raw.isEmpty())
            continue; // the header, and the end of the file
        const auto problem = [&](const QString& what) {
            source.problems.append(QStringLiteral("line %1: %2").arg(lineNo).arg(what));
        };
        const QStringList columns = QString::fromUtf8(raw).split(QLatin1Char('\t'));
        if (columns.size() != 9) {
            problem(QStringLiteral("%1 columns instead of 9").arg(columns.size()));
            continue;
        }
        CatalogueRow row;
        bool ok = false;
        row.id = columns.at(0).toInt(&ok);
        if (!ok || row.id < 0 || row.id > kMaxId) {
            problem(QStringLiteral("the id '%1' is no number").arg(columns.at(0)));
            continue;
        }
        if (row.id <= previous)
            problem(QStringLiteral("id %1 does not follow %2").arg(row.id).arg(previous));
        previous = std::max(previous, row.id);
        for (int c = 1; c <= 8; ++c) {
            bool escapesOk = true;
            const QString text = unescape(columns.at(c), &escapesOk);
            if (!escapesOk)
                problem(QStringLiteral("id %1, text%2: unknown escape").arg(row.id).arg(c));
            if (text.isEmpty())
                problem(QStringLiteral("id %1, text%2 is empty").arg(row.id).arg(c));
            row.texts.append(text);
        }
        source.rows.append(row);
    }
    return source;
}

bool writeCatalogueDatabase(const QString& path, const QList<CatalogueRow>& rows, QString* error)
{
    const auto fail = [&](const QString& why) {
        if (error)
            *error = why;
        return false;
    };
    if (QFile::exists(path) && !QFile::remove(path))
        return fail(QStringLiteral("cannot replace %1").arg(path));

    static QAtomicInt counter;
    const QString name =
        QStringLiteral("korvo-catalogue-writer-%1").arg(counter.fetchAndAddRelaxed(1));
    bool done = false;
    QString why;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        if (db.open()) {
            QSqlQuery q(db);
            QStringList columns;
            for (int c = 1; c <= 8; ++c)
                columns.append(QStringLiteral("text%1 TEXT").arg(c));
            done = q.exec(QStringLiteral("CREATE TABLE texts (id INTEGER PRIMARY KEY, %1)")
                              .arg(columns.join(QStringLiteral(", "))));
            done = done && db.transaction();
            done =
                done && q.prepare(QStringLiteral("INSERT INTO texts VALUES (?,?,?,?,?,?,?,?,?)"));
            for (const CatalogueRow& row : rows) {
                if (!done)
                    break;
                q.addBindValue(row.id);
                for (int c = 0; c < 8; ++c)
                    q.addBindValue(c < row.texts.size() ? row.texts.at(c) : QString());
                done = q.exec();
            }
            done = done && db.commit();
            if (!done)
                why = q.lastError().text();
            db.close();
        } else {
            why = db.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(name);
    return done ? true : fail(why);
}

QString captionIdioma(int idioma)
{
    static const char* const captions[] = {
        "&Español",  "E&nglish",  "&Português", "&Dutch",
        "&Français", "&Italiano", "&Griego",    "P&olska",
    };
    if (idioma < 1 || idioma > 8)
        throw RuntimeError::subscriptOutOfRange();
    return QString::fromUtf8(captions[idioma - 1]);
}
