// The options of the export, and the road to the writer that they choose.
#include "dwg/EsportaDWG.h"

#include <algorithm>

#include "dialogs/Parametri.h"
#include "dwg/dwgdxf.h"
#include "exchange/DXF.h"
#include "model/TabellaStato.h"

namespace tessaro {

namespace {

constexpr std::int16_t obiettivoProprio = 3;

struct Obiettivo {
    std::int16_t item, tipo, fileType;
};
constexpr Obiettivo obiettivi[] = {{4, 1, 0}, {5, 2, 1}, {6, obiettivoProprio, -1}};

struct Versione {
    std::int16_t item, outVer;
};
constexpr Versione versioni[] = {{9, 29}, {10, 27}, {11, 25}, {12, 23}, {13, 21}, {14, 16}};

constexpr std::int16_t dialogoOpzioni = 1097;
constexpr std::int16_t itemProprio = 6, itemNuovissima = 9, spuntaInUso = 15, spuntaChiuse = 16;

// The program's own file has one version; of the others those that have a writer can be chosen.
bool scrivibile(const Obiettivo& o, const Versione& v) {
    return o.fileType >= 0 && PuoScrivere(static_cast<OdDbSaveType>(o.fileType), v.outVer);
}

bool costruito(const Obiettivo& o) {
    return o.fileType < 0 || std::any_of(std::begin(versioni), std::end(versioni), [&](const Versione& v) {
               return scrivibile(o, v);
           });
}

}   // namespace

constinit std::int16_t tipoFileEsportato = obiettivoProprio;
constinit std::int16_t fileType = 1;
constinit std::int16_t outVer = 29;
constinit std::int16_t itemDWGDXF = itemProprio;
constinit std::int16_t itemVersione = itemNuovissima;

namespace {

class TOpzioniEsportaDWG : public TParametri {
public:
    TOpzioniEsportaDWG() { Poni(1, 2, 0, 0, dialogoOpzioni); }
    void Display() override {
        for (const Obiettivo& o : obiettivi) {
            SetDialogItemValue(theDialog, o.item, o.item == itemDWGDXF);
            if (!costruito(o)) HiliteDialogItem(theDialog, o.item, 255);
        }
        for (const Versione& v : versioni) SetDialogItemValue(theDialog, v.item, v.item == itemVersione);
        SetDialogItemValue(theDialog, spuntaInUso, scelteEsporta.soloInUso);
        SetDialogItemValue(theDialog, spuntaChiuse, scelteEsporta.chiuse);
        abilitaVersioni();
    }
    // The items that stand marked as what the export is told by.
    static void inggene() {
        for (const Obiettivo& o : obiettivi) {
            if (o.item != itemDWGDXF) continue;
            tipoFileEsportato = o.tipo;
            if (o.fileType >= 0) fileType = o.fileType;
        }
        for (const Versione& v : versioni)
            if (v.item == itemVersione) outVer = v.outVer;
    }
    bool esegui() {
        const std::int16_t obiettivoPrima = itemDWGDXF, versionePrima = itemVersione;
        const DialogoAperto aperto(dialogoId);
        Display();
        do {
            ModalDialog(MyMovableFilter, itemCorrente);
            if (itemCorrente >= obiettivi[0].item && itemCorrente <= itemProprio) {
                RadioBoxItem(itemDWGDXF);
                abilitaVersioni();
            } else if (itemCorrente >= itemNuovissima && itemCorrente <= std::end(versioni)[-1].item) {
                RadioBoxItem(itemVersione);
            } else if (itemCorrente == spuntaInUso || itemCorrente == spuntaChiuse) {
                CambiaCheck(itemCorrente);
            }
        } while (itemCorrente != okItem && itemCorrente != annullaItem);
        const auto spunta = [](std::int16_t item) {
            return static_cast<std::uint8_t>(GetDialogItemValue(theDialog, item) != 0);
        };
        const ScelteEsporta scelte{spunta(spuntaInUso), spunta(spuntaChiuse)};
        if (itemCorrente == okItem) {
            inggene();
            scelteEsporta = scelte;
            return true;
        }
        itemDWGDXF = obiettivoPrima;
        itemVersione = versionePrima;
        return false;
    }

private:
    // A version that the target cannot be written in gives way to the newest that it can.
    void abilitaVersioni() {
        const auto* const o = std::find_if(std::begin(obiettivi), std::end(obiettivi),
                                           [](const Obiettivo& x) { return x.item == itemDWGDXF; });
        for (const std::int16_t item : {spuntaInUso, spuntaChiuse})
            HiliteDialogItem(theDialog, item, o->fileType < 0 ? 255 : 0);
        const Versione* prima = nullptr;
        bool scelta = false;
        for (const Versione& v : versioni) {
            const bool si = scrivibile(*o, v);
            HiliteDialogItem(theDialog, v.item, si ? 0 : 255);
            if (si && prima == nullptr) prima = &v;
            scelta = scelta || (si && v.item == itemVersione);
        }
        if (scelta || prima == nullptr) return;
        SetDialogItemValue(theDialog, itemVersione, 0);
        itemVersione = prima->item;
        SetDialogItemValue(theDialog, itemVersione, 1);
    }
};

}   // namespace

bool OpzioniEsportazione() { return TOpzioniEsportaDWG().esegui(); }

void EsportaDWG() {
    if (!OpzioniEsportazione()) return;
    if (tipoFileEsportato == obiettivoProprio)
        FaiDXF();
    else
        SaveDWGDXF(tipoFileEsportato, outVer);
}

namespace {
const VoceStato righe[] = {
    voce<tipoFileEsportato>("tipoFileEsportato"),
    voce<fileType>("fileType"),
    voce<outVer>("outVer"),
    voce<itemDWGDXF>("itemDWGDXF"),
    voce<itemVersione>("itemVersione"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
