// What a script may do to an open dialog: type, choose, click, and ask what an item shows.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

#include "platform/Automation.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

QString testoVisto(const VoceDialogo& v) {
    if (const auto* campo = qobject_cast<const QLineEdit*>(v.widget)) return campo->text();
    if (const auto* fisso = qobject_cast<const QLabel*>(v.widget)) return fisso->text();
    if (const auto* scelta = qobject_cast<const QComboBox*>(v.widget)) return scelta->currentText();
    if (v.tipo == TipoVoce::elenco) return daUtf8(rigaScelta(v));
    if (v.tipo == TipoVoce::tabella) return daUtf8(testoTabella(v));
    if (v.tipo == TipoVoce::griglia) return daUtf8(testoGriglia(v));
    if (v.tipo == TipoVoce::cursore || v.tipo == TipoVoce::colore) return QString::number(v.valore);
    if (const auto* bottone = qobject_cast<const QAbstractButton*>(v.widget))
        return bottone->text().replace(QStringLiteral("&&"), QStringLiteral("&"));
    return daUtf8(v.grezzo);
}

std::string fraVirgolette(const std::string& utf8) {
    std::string s = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\') s += '\\';
        if (c == '\n')
            s += "\\n";
        else
            s += c;
    }
    return s + '"';
}

}   // namespace

bool AutoDialogSetText(DialogPtr d, std::int16_t item, std::string_view macRoman) {
    VoceDialogo* v = voceDi(d, item);
    if (v != nullptr && v->tipo == TipoVoce::griglia) return v->accesa && scriviGriglia(*v, daMac(macRoman));
    if (v == nullptr || v->tipo != TipoVoce::campo || !v->accesa) return false;
    auto* campo = qobject_cast<QLineEdit*>(v->widget);
    if (campo == nullptr) return false;
    campo->setFocus(Qt::OtherFocusReason);
    campo->selectAll();
    campo->insert(daMac(macRoman));   // as if pasted: it counts as edited, which is a hit, and the field's limits hold
    return true;
}

bool AutoDialogSetValue(DialogPtr d, std::int16_t item, std::int32_t value) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr || !v->accesa) return false;
    if (v->tipo != TipoVoce::scelta && v->tipo != TipoVoce::cursore && v->tipo != TipoVoce::elenco) return false;
    if (v->tipo == TipoVoce::elenco && (value < 1 || value > righeElenco(*v))) return false;
    if (const auto* scelta = qobject_cast<const QComboBox*>(v->widget); scelta != nullptr)
        if (value < 1 || value > scelta->count()) return false;
    if (const auto* cursore = qobject_cast<const QSlider*>(v->widget); cursore != nullptr)
        if (value < cursore->minimum() || value > cursore->maximum()) return false;
    SetDialogItemValue(d, item, value);
    colpisci(*d, item);
    return true;
}

bool AutoDialogClick(DialogPtr d, std::int16_t item) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr || !v->accesa || v->widget == nullptr) return false;
    if (auto* bottone = qobject_cast<QAbstractButton*>(v->widget); bottone != nullptr) {
        bottone->click();
        return true;
    }
    if (v->tipo != TipoVoce::campo) return false;
    v->widget->setFocus(Qt::MouseFocusReason);
    colpisci(*d, item);
    return true;
}

bool AutoDialogKey(DialogPtr d, std::uint8_t macRoman) {
    if (d == nullptr || d->quadro == nullptr) return false;
    iniettaTasto(d->quadro, macRoman, 0);
    return true;
}

bool AutoDialogDescribe(DialogPtr d, std::int16_t item, std::string& outUtf8) {
    const VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return false;
    outUtf8 = fraVirgolette(testoVisto(*v).toStdString());
    if (!v->accesa) outUtf8 += " disabled";
    const bool segnata = (v->tipo == TipoVoce::spunta || v->tipo == TipoVoce::radio) && v->valore != 0;
    if (segnata) outUtf8 += " checked";
    const auto* campo = qobject_cast<const QLineEdit*>(v->widget);
    if (campo != nullptr && d->quadro->focusWidget() == campo) {
        const bool scelto = campo->hasSelectedText();
        outUtf8 += " selected " + std::to_string(scelto ? campo->selectionStart() : campo->cursorPosition()) + " "
                   + std::to_string(scelto ? campo->selectionEnd() : campo->cursorPosition());
    }
    return true;
}

std::int16_t AutoDialogId(DialogPtr d) { return d == nullptr ? std::int16_t{0} : d->id; }

}   // namespace tessaro
