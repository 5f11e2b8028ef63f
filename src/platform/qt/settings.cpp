// The folder of the settings files, with the installed defaults in place of those that a person has not got yet.
#include <QFile>

#include <cstdint>
#include <filesystem>

#include "platform/Files.h"
#include "platform/qt/Interno.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr const char* predefiniti[] = {"TESSCONT"};   // below resources/defaults

void semina(const std::string& cartella, const char* nome) {
    const FSSpec spec = FSMakeFSSpecIn(cartella, nome);
    std::error_code e;
    if (std::filesystem::exists(spec.percorso, e)) return;
    const std::string testo = ResourceFile(std::string("defaults/") + nome);
    std::int16_t ref = 0;
    if (testo.empty() || FSpOpenReplacing(spec, tipoDi("TSC3"), tipoDi("TEXT"), ref) != noErr) return;
    auto n = static_cast<std::int32_t>(testo.size());
    FSWrite(ref, n, testo.data());
    FSClose(ref);   // a folder that refuses it is told when the file is asked for
}

}   // namespace

std::string linguaPreferita() {
    constexpr qint64 abbastanza = 65536;
    QFile f(daUtf8(cartellaImpostazioni()) + QStringLiteral("/preferences"));
    if (!f.open(QIODevice::ReadOnly)) return {};
    std::string trovata;
    for (const QByteArray& riga : f.read(abbastanza).split('\n')) {
        const auto uguale = riga.indexOf('=');
        if (uguale < 0 || riga.left(uguale).trimmed() != "language") continue;
        const QByteArray valore = riga.mid(uguale + 1).trimmed();
        trovata = valore == "en" || valore == "it" ? valore.toStdString() : std::string();
    }
    return trovata;
}

std::string SettingsFolder() {
    std::string cartella = cartellaImpostazioni();
    for (const char* nome : predefiniti) semina(cartella, nome);
    return cartella;
}

}   // namespace tessaro
