// The tablet's settings file: lines of `name = value`, UTF-8, `#` for remarks.
#include "digitising/TavolettaImpostazioni.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "dialogs/Errori.h"
#include "digitising/TavolettaPacchetti.h"
#include "files/Impostazioni.h"
#include "files/TestiFile.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Resources.h"

namespace tessaro {

constinit double corrXt = 0.25;
constinit double corrYt = 0.25;
constinit double scalaXt = 0.25;
constinit double scalaYt = 0.25;

constinit std::int16_t lettoreScelto = 1, formatoTavoletta = 1, numPorte = 0, portaScelta = 0, Parita = 0, StopBit = 0;

namespace {

constexpr const char* nomeFile = "Tavoletta";
constexpr std::int32_t maxFile = 4096;   // bytes; what lies behind is nothing of ours
constexpr std::string_view nomePorta = "port", nomeConteggi = "counts";

struct VoceIntera {
    std::string_view nome;
    std::int16_t* valore;
    std::int16_t min, max;
};
const VoceIntera intere[] = {
    {"reader", &lettoreScelto, 1, 2}, {"format", &formatoTavoletta, 1, 3},
    {"speed", &velbaud, 1, 5},        {"word", &databit, 6, 8},
    {"stop", &bitstop, 1, 3},         {"parity", &parity, 1, 3},
};

std::string_view pulita(std::string_view s) {
    constexpr std::string_view bianchi = " \t\r";
    const auto da = s.find_first_not_of(bianchi);
    if (da == std::string_view::npos) return {};
    return s.substr(da, s.find_last_not_of(bianchi) - da + 1);
}

template <typename T>
bool leggiTra(std::string_view s, T min, T max, T& valore) {
    T v{};
    const auto esito = std::from_chars(s.data(), s.data() + s.size(), v);
    if (esito.ec != std::errc{} || esito.ptr != s.data() + s.size() || !(v >= min && v <= max)) return false;
    valore = v;
    return true;
}

bool assegna(std::string_view nome, std::string_view valore) {
    if (nome == nomePorta) {
        PortaTavIn = PortaTavOut = PStr255(std::string_view(Utf8ToMac(valore)));
        return true;
    }
    if (nome == nomeConteggi) return leggiTra(valore, 1.0, 1000.0, puntimm);
    const auto* v = std::find_if(std::begin(intere), std::end(intere), [&](const auto& x) { return x.nome == nome; });
    return v != std::end(intere) && leggiTra(valore, v->min, v->max, *v->valore);
}

// The numbers of the lines that say nothing usable.
std::string leggiRighe(std::string_view testo) {
    std::string rifiutate;
    for (int numero = 1; !testo.empty(); ++numero) {
        const auto fine = testo.find('\n');
        const std::string_view riga = pulita(testo.substr(0, fine));
        testo.remove_prefix(fine == std::string_view::npos ? testo.size() : fine + 1);
        if (riga.empty() || riga.front() == '#') continue;
        const auto uguale = riga.find('=');
        if (uguale != std::string_view::npos
            && assegna(pulita(riga.substr(0, uguale)), pulita(riga.substr(uguale + 1))))
            continue;
        rifiutate += (rifiutate.empty() ? "" : ", ") + std::to_string(numero);
    }
    return rifiutate;
}

FSSpec file() { return FSMakeFSSpecIn(SettingsFolder(), nomeFile); }

void racconta(OSErr e, std::string what) { MostraGuasto({e, std::move(what), Utf8ToMac(file().percorso), -1}); }

std::string numero(double v) {
    char s[32];
    return {s, std::to_chars(s, s + sizeof s, v).ptr};
}

}   // namespace

LineaSeriale LineaTavoletta() {
    constexpr std::int32_t velocita[] = {1200, 2400, 4800, 9600, 19200};
    constexpr LineaSeriale::Parita paritaDi[] = {LineaSeriale::Parita::nessuna, LineaSeriale::Parita::dispari,
                                                 LineaSeriale::Parita::pari};
    const auto indice = [](std::int16_t codice, std::int16_t max) {
        return static_cast<std::size_t>(std::clamp<std::int16_t>(codice, 1, max) - 1);
    };
    LineaSeriale l;
    l.porta = MacToUtf8(PortaTavIn.view());
    l.velocita = velocita[indice(velbaud, 5)];
    l.bit = databit;
    l.mezziStop = static_cast<std::int16_t>(indice(bitstop, 3) + 2);
    l.parita = paritaDi[indice(parity, 3)];
    return l;
}

void ScalaTavoletta() {
    constexpr double unitaPerMillimetro = 10;
    constexpr double usuali = 40;   // counts a millimetre, where the start settings say none or what cannot be
    corrXt = corrYt = unitaPerMillimetro / (puntimm > 0 && std::isfinite(puntimm) ? puntimm : usuali);
    scalaXt = corrXt * scalaX;
    scalaYt = corrYt * scalaY;
}

void LeggiParTavoletta() {
    std::int16_t ref = 0;
    const OSErr aperto = FSpOpenDF(file(), fsRdPerm, ref);
    if (aperto == fnfErr) return;
    if (aperto != noErr) return racconta(aperto, {});
    std::string testo(maxFile, '\0');
    std::int32_t quanti = maxFile;
    const OSErr letto = FSRead(ref, quanti, testo.data());
    FSClose(ref);
    if (letto != noErr && letto != eofErr) return racconta(letto, {});
    testo.resize(static_cast<std::size_t>(quanti));
    if (const std::string rifiutate = leggiRighe(testo); !rifiutate.empty())
        racconta(noErr, TestoDi(TestoFile::impostazioni, rifiutate));
}

bool ScriviParTavoletta() {
    std::string testo;
    const auto riga = [&testo](std::string_view nome, std::string_view valore) {
        testo.append(nome).append(" = ").append(valore).append("\n");
    };
    for (const VoceIntera& v : intere) riga(v.nome, std::to_string(*v.valore));
    riga(nomePorta, MacToUtf8(PortaTavIn.view()));
    riga(nomeConteggi, numero(puntimm));
    std::int16_t ref = 0;
    OSErr e = FSpOpenReplacing(file(), tipoDi("TSC3"), tipoDi("TEXT"), ref);
    if (e == noErr) {
        auto quanti = static_cast<std::int32_t>(testo.size());
        const OSErr scritto = FSWrite(ref, quanti, testo.data());
        e = FSClose(ref);
        if (scritto != noErr) e = scritto;
    }
    if (e != noErr) racconta(e, {});
    return e == noErr;
}

namespace {
const VoceStato righe[] = {
    voce<corrXt>("corrXt"),
    voce<corrYt>("corrYt"),
    voce<scalaXt>("scalaXt"),
    voce<scalaYt>("scalaYt"),
    voce<lettoreScelto>("lettoreScelto"),
    voce<formatoTavoletta>("formatoTavoletta"),
    voce<numPorte>("numPorte"),
    voce<portaScelta>("portaScelta"),
    voce<Parita>("Parita"),
    voce<StopBit>("StopBit"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
