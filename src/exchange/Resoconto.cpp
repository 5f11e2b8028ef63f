// The sentences of the loss reports.
#include "exchange/Resoconto.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "model/Archivio.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int16_t listaScambio = 9151, avvisoLetto = 9110, avvisoScritto = 9111;
constexpr std::size_t nomiTenuti = 200;   // a hostile file may hold a million names
constexpr std::size_t nomiMostrati = 8;
constexpr std::size_t nomeLungo = 24;

std::string stringa(std::int16_t n) { return GetIndString(listaScambio, n); }

std::string con(std::string s, std::string_view p0) {
    if (const auto dove = s.find("^0"); dove != std::string::npos) s.replace(dove, 2, p0);
    return s;
}

// Only what is safe to show: an entity's name is a word of capitals and digits.
std::string mostrabile(std::string_view s) {
    std::string m(s.substr(0, nomeLungo));
    for (char& c : m) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
        if (c <= ' ' || c > '~' || c == '^') c = '?';
    }
    return m;
}

void elenca(std::string& s, std::string_view voce) {
    if (!s.empty()) s += ", ";
    s += voce;
}

}   // namespace

std::string TestoDi(TestoScambio t, std::string_view p0) { return con(stringa(static_cast<std::int16_t>(t)), p0); }

std::string ConMigliaia(std::int64_t n) {
    std::string s = std::to_string(n);
    const std::string separatore = TestoDi(TestoScambio::migliaia);
    for (std::size_t i = s.size(); i > 3; i -= 3) s.insert(i - 3, separatore);
    return s;
}

void ElementiContati::aggiungi(std::uint8_t tipo) {
    switch (tipo) {
    case tSegmento: ++quanti[cSegmenti]; break;
    case tMarker: ++quanti[cMarker]; break;
    case tPoligono: ++quanti[cPoligoni]; break;
    case tTesto: ++quanti[cTesti]; break;
    case tPict: ++quanti[cImmagini]; break;
    case tCerchio: ++quanti[cCerchi]; break;
    case tArco: ++quanti[cArchi]; break;
    default: break;
    }
}

void ElementiContati::contaRecord(std::int32_t primo) {
    for (std::int32_t i = primo; i <= indElem; ++i) aggiungi(Elem(i).tipo);
}

bool ElementiContati::vuoti() const {
    return std::all_of(quanti.begin(), quanti.end(), [](std::int64_t n) { return n == 0; });
}

std::string ElementiContati::testo() const {
    std::string s;
    for (std::size_t i = 0; i < nConteggi; ++i) {
        if (quanti[i] == 0) continue;
        const auto uno = static_cast<std::int16_t>(static_cast<std::size_t>(TestoScambio::primoConteggio) + 2 * i);
        const auto numero = static_cast<std::int16_t>(quanti[i] == 1 ? uno : uno + 1);
        elenca(s, con(stringa(numero), ConMigliaia(quanti[i])));
    }
    return s.empty() ? TestoDi(TestoScambio::nulla) : s;
}

void Resoconto::tralascia(std::string_view entita) {
    const auto i = tralasciati.find(entita);
    if (i != tralasciati.end())
        ++i->second;
    else if (tralasciati.size() < nomiTenuti)
        tralasciati.emplace(entita, 1);
    else
        ++oltre;
}

std::string Resoconto::testoTralasciati() const {
    std::map<std::string, std::int64_t> perNome;
    for (const auto& [nome, n] : tralasciati) perNome[mostrabile(nome)] += n;
    std::vector<std::pair<std::string, std::int64_t>> voci(perNome.begin(), perNome.end());
    std::stable_sort(voci.begin(), voci.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    std::string s;
    std::int64_t resto = oltre;
    for (std::size_t i = 0; i < voci.size(); ++i) {
        if (i < nomiMostrati)
            elenca(s, ConMigliaia(voci[i].second) + ' ' + voci[i].first);
        else
            resto += voci[i].second;
    }
    if (resto > 0) elenca(s, TestoDi(TestoScambio::altri, ConMigliaia(resto)));
    if (!parti.vuoti()) elenca(s, parti.testo());
    return s.empty() ? s : TestoDi(TestoScambio::tralasciati, s);
}

void Resoconto::mostra(const ElementiContati& entrati, std::int64_t righe, bool fermata) const {
    std::string note = noteProprie;
    const auto nota = [&note](TestoScambio t, std::int64_t n) {
        if (n > 0) note += (note.empty() ? "" : " ") + TestoDi(t, ConMigliaia(n));
    };
    if (!cambiati.vuoti()) note += (note.empty() ? "" : " ") + TestoDi(TestoScambio::cambiati, cambiati.testo());
    nota(TestoScambio::colori, colori);
    nota(TestoScambio::senzaPosto, perduti);
    nota(TestoScambio::pieno, archivioPieno);
    std::string arresto;
    if (righe > 0) arresto = TestoDi(fermata ? TestoScambio::fermata : TestoScambio::interrotta, ConMigliaia(righe));
    ParamText(entrati.testo(), testoTralasciati(), note, arresto);
    NoteAlert(avvisoLetto);
}

void MostraScritti(const Scritti& s, TestoScambio formato) {
    std::string lasciati = s.perduti.vuoti() ? std::string() : TestoDi(TestoScambio::tralasciati, s.perduti.testo());
    if (!s.cambiati.vuoti())
        lasciati += (lasciati.empty() ? "" : "\n") + TestoDi(TestoScambio::cambiati, s.cambiati.testo());
    ParamText(s.scritti.testo(), lasciati, s.scritti.vuoti() ? std::string() : TestoDi(formato), {});
    NoteAlert(avvisoScritto);
}

}   // namespace tessaro
