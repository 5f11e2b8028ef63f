// Reading how much memory the journal may take.
#include "shell/ImpostazioniGiornale.h"

#include <charconv>
#include <string>
#include <string_view>

#include "dialogs/Errori.h"
#include "files/TestiFile.h"
#include "model/Giornale.h"
#include "platform/Files.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int32_t maxFile = 4096, maxMemoria = 65536;

std::string_view pulita(std::string_view s) {
    const auto da = s.find_first_not_of(" \t\r"), a = s.find_last_not_of(" \t\r");
    return da == std::string_view::npos ? std::string_view{} : s.substr(da, a - da + 1);
}

bool assegna(std::string_view nome, std::string_view valore) {
    std::int32_t v = 0;
    const auto r = std::from_chars(valore.data(), valore.data() + valore.size(), v);
    if (nome != "memory" || r.ec != std::errc{} || r.ptr != valore.data() + valore.size() || v < 1 || v > maxMemoria)
        return false;
    memoriaGiornale = v;
    return true;
}

}   // namespace

void LeggiParGiornale() {
    const FSSpec file = FSMakeFSSpecIn(SettingsFolder(), "journal");
    std::int16_t ref = 0;
    if (FSpOpenDF(file, fsRdPerm, ref) != noErr) return;
    std::string testo(maxFile, '\0');
    std::int32_t quanti = maxFile;
    FSRead(ref, quanti, testo.data());
    FSClose(ref);
    testo.resize(static_cast<std::size_t>(quanti));
    std::string rifiutate;
    std::string_view resto = testo;
    for (int numero = 1; !resto.empty(); ++numero) {
        const auto fine = resto.find('\n');
        const std::string_view riga = pulita(resto.substr(0, fine));
        resto.remove_prefix(fine == std::string_view::npos ? resto.size() : fine + 1);
        if (riga.empty() || riga.front() == '#') continue;
        const auto uguale = riga.find('=');
        if (uguale == std::string_view::npos
            || !assegna(pulita(riga.substr(0, uguale)), pulita(riga.substr(uguale + 1))))
            rifiutate += (rifiutate.empty() ? "" : ", ") + std::to_string(numero);
    }
    if (!rifiutate.empty())
        MostraGuasto({noErr, TestoDi(TestoFile::impostazioni, rifiutate), Utf8ToMac(file.percorso), -1});
}

}   // namespace tessaro
