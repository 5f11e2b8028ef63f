// The one serial line that may be open. Its bytes and its end wake the loop, which asks for them.
#include <QByteArray>
#include <QSerialPort>
#include <QSerialPortInfo>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Events.h"
#include "platform/qt/Interno.h"
#include "platform/Tablet.h"

namespace tessaro {

namespace {

constexpr qsizetype maxInAttesa = 1 << 16;   // bytes that wait to be read; a loop that never asks must not fill memory

struct Linea {
    QSerialPort porta;
    QByteArray arrivati;
    bool tagliata = false;
    GuastoSeriale guasto = GuastoSeriale::nessuno;
};
std::unique_ptr<Linea> linea;

GuastoSeriale guastoDi(QSerialPort::SerialPortError e) {
    switch (e) {
    case QSerialPort::NoError: return GuastoSeriale::nessuno;
    case QSerialPort::DeviceNotFoundError: return GuastoSeriale::assente;
    case QSerialPort::PermissionError:
    case QSerialPort::OpenError: return GuastoSeriale::negata;
    case QSerialPort::UnsupportedOperationError: return GuastoSeriale::impostazioni;
    case QSerialPort::ResourceError:
    case QSerialPort::ReadError:   // what a device that went says first, by its driver
        return GuastoSeriale::scollegata;
    default: return GuastoSeriale::lettura;
    }
}

void arrivo() {
    const QByteArray nuovi = linea->porta.readAll();
    if (annidamento() > 0 || linea->arrivati.size() + nuovi.size() > maxInAttesa) {
        linea->tagliata = true;
        return;
    }
    linea->arrivati += nuovi;
    sveglia();
}

void guasto(QSerialPort::SerialPortError e) {
    if (e == QSerialPort::NoError || linea->guasto != GuastoSeriale::nessuno) return;
    linea->guasto = guastoDi(e);
    // A line that hung up is ready to be read for ever. Not at once: the port is telling of its fault just now.
    QMetaObject::invokeMethod(
        &linea->porta, [p = &linea->porta] { p->close(); }, Qt::QueuedConnection);
    sveglia();
}

bool imposta(QSerialPort& p, const LineaSeriale& l) {
    constexpr QSerialPort::StopBits stop[] = {QSerialPort::OneStop, QSerialPort::OneAndHalfStop, QSerialPort::TwoStop};
    constexpr QSerialPort::Parity parita[] = {QSerialPort::NoParity, QSerialPort::OddParity, QSerialPort::EvenParity};
    return p.setBaudRate(l.velocita) && p.setDataBits(static_cast<QSerialPort::DataBits>(l.bit))
           && p.setStopBits(stop[std::clamp(l.mezziStop - 2, 0, 2)])
           && p.setParity(parita[static_cast<std::size_t>(l.parita)]) && p.setFlowControl(QSerialPort::NoFlowControl);
}

}   // namespace

std::vector<std::string> SerialPorts() {
    std::vector<std::string> v;
    if (copione() != nullptr) return v;   // a script's pictures do not depend on what is plugged in
    for (const QSerialPortInfo& i : QSerialPortInfo::availablePorts()) v.push_back(i.systemLocation().toStdString());
    return v;
}

GuastoSeriale SerialOpen(const LineaSeriale& l) {
    SerialClose();
    auto nuova = std::make_unique<Linea>();
    QSerialPort& p = nuova->porta;
    p.setPortName(daUtf8(l.porta));
    if (!p.open(QIODevice::ReadOnly)) {
        const GuastoSeriale g = guastoDi(p.error());
        return g == GuastoSeriale::nessuno ? GuastoSeriale::lettura : g;
    }
    if (!imposta(p, l)) return GuastoSeriale::impostazioni;
    p.clear(QSerialPort::Input);   // what lay in the line before this moment is no sample of now
    linea = std::move(nuova);
    QObject::connect(&p, &QSerialPort::readyRead, &p, arrivo);
    QObject::connect(&p, &QSerialPort::errorOccurred, &p, guasto);
    return GuastoSeriale::nessuno;
}

std::size_t SerialRead(std::uint8_t* data, std::size_t room) {
    if (linea == nullptr) return 0;
    const auto n = std::min(room, static_cast<std::size_t>(linea->arrivati.size()));
    std::copy_n(linea->arrivati.cbegin(), n, data);
    linea->arrivati.remove(0, static_cast<qsizetype>(n));
    return n;
}

bool SerialCut() { return linea != nullptr && std::exchange(linea->tagliata, false); }
GuastoSeriale SerialFault() { return linea == nullptr ? GuastoSeriale::nessuno : linea->guasto; }

void SerialClose() {
    if (linea != nullptr) linea->porta.disconnect();   // what it tells while it goes would find no line any more
    linea.reset();
}

}   // namespace tessaro
