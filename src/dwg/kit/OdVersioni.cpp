// The table of versions, with the writer of each, and the readers.
#include "dwg/kit/OdVersioni.h"

#include <algorithm>
#include <array>

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"
#include "dwg/kit/dxfscrivi/GruppiInUscita.h"
#include "dwg/kit/leggidwg/LeggiDwg.h"
#include "dwg/kit/scrividwg/FileDwg12.h"
#include "dwg/kit/scrividwg/ScriviDwg.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

// The kit counts every format since the first: R12 is the 16th, R14 the 21st, and from 2000 on each format has two
// numbers, the second its released form.
constexpr OdDbDwgVersion versioni[] = {
    {29, "AC1024", "2010"}, {27, "AC1021", "2007"}, {25, "AC1018", "2004"},
    {23, "AC1015", "2000"}, {21, "AC1014", "R14"},  {16, "AC1009", "R12"},
};

struct Scrittura {
    OdDbSaveType tipo;
    std::int16_t numero;
    OdScrittore scrivi;
};
// A version without a row is dimmed in the dialog.
constexpr Scrittura scritture[] = {
    {OdDbSaveType::kDxf, 29, ScriviDxf}, {OdDbSaveType::kDxf, 27, ScriviDxf},   {OdDbSaveType::kDxf, 25, ScriviDxf},
    {OdDbSaveType::kDxf, 23, ScriviDxf}, {OdDbSaveType::kDxf, 21, ScriviDxf},   {OdDbSaveType::kDxf, 16, ScriviDxf},
    {OdDbSaveType::kDwg, 29, ScriviDwg}, {OdDbSaveType::kDwg, 25, ScriviDwg},   {OdDbSaveType::kDwg, 23, ScriviDwg},
    {OdDbSaveType::kDwg, 21, ScriviDwg}, {OdDbSaveType::kDwg, 16, ScriviDwg12},
};

struct Lettura {
    OdDbSaveType tipo;
    OdLettore leggi;
};
constexpr Lettura letture[] = {{OdDbSaveType::kDxf, LeggiDxfKit}, {OdDbSaveType::kDwg, LeggiDwg}};

OdScrittore scrittore(OdDbSaveType tipo, std::int16_t numero) {
    for (const Scrittura& s : scritture)
        if (s.tipo == tipo && s.numero == numero) return s.scrivi;
    return nullptr;
}

OdLettore lettore(OdDbSaveType tipo) {
    for (const Lettura& l : letture)
        if (l.tipo == tipo) return l.leggi;
    return nullptr;
}

// A DWG begins with its version, "AC1.2" to "AC1032"; no DXF does.
OdError tipoDelFile(const FSSpec& file, OdDbSaveType& tipo) {
    std::int16_t ref = 0;
    if (const OSErr e = FSpOpenDF(file, fsRdPerm, ref); e != noErr)
        return {e == fnfErr ? eFileNotFound : eNotOpenForRead, e, {}};
    std::array<char, 6> inizio{};
    auto n = static_cast<std::int32_t>(inizio.size());
    FSRead(ref, n, inizio.data());
    FSClose(ref);
    const std::string_view s(inizio.data(), static_cast<std::size_t>(std::max(n, 0)));
    const bool dwg = s.starts_with("AC1.") || s.starts_with("AC2.") || s.starts_with("AC10") || s.starts_with("MC0.0");
    tipo = dwg ? OdDbSaveType::kDwg : OdDbSaveType::kDxf;
    return {};
}

}   // namespace

std::span<const OdDbDwgVersion> VersioniScrivibili() { return versioni; }

const OdDbDwgVersion* VersioneDi(std::int16_t numero) {
    for (const OdDbDwgVersion& v : versioni)
        if (v.numero == numero) return &v;
    return nullptr;
}

std::string getErrorDescription(const OdError& e) {
    constexpr std::int16_t listaErrori = 9152;
    if (e.codice == eOk) return {};
    std::string s = GetIndString(listaErrori, e.codice);
    const auto poni = [&s](std::string_view segno, const std::string& valore) {
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), valore);
    };
    poni("^0", std::to_string(e.dettaglio));
    poni("^1", Utf8ToMac(e.nota));
    return s;
}

bool PuoScrivere(OdDbSaveType tipo, std::int16_t numero) { return scrittore(tipo, numero) != nullptr; }
bool PuoLeggere(OdDbSaveType tipo) { return lettore(tipo) != nullptr; }

OdError writeFile(OdDbDatabase& db, OdWrFileBuf& file, OdDbSaveType tipo, std::int16_t numero,
                  OdDbHostAppProgressMeter& meter) {
    const OdDbDwgVersion* const versione = VersioneDi(numero);
    const OdScrittore scrivi = scrittore(tipo, numero);
    if (versione == nullptr || scrivi == nullptr) return {eUnsupportedVersion, 0, std::to_string(numero)};
    AssegnaHandle(db);
    OdError esito = scrivi(db, *versione, file, meter);
    file.flush();
    if (esito.codice == eOk && file.errore != noErr) esito = {eFileWriteError, file.errore, {}};
    return esito;
}

OdError readFile(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter) {
    OdDbSaveType tipo{};
    if (OdError e = tipoDelFile(file, tipo); e.codice != eOk) return e;
    const OdLettore leggi = lettore(tipo);
    if (leggi == nullptr) return {eUnsupportedVersion, 0, tipo == OdDbSaveType::kDwg ? "DWG" : "DXF"};
    return leggi(db, file, meter);
}

}   // namespace tessaro
