#pragma once

#include <cstdint>
#include <QByteArray>

struct ModBase;
struct CoordenadasEnvio;
struct TablaCaracteres;

// The envelope every frame has: 0x02, a two-character kind, the payload,
// 0x03, the check value and 0x0D. Each character is one byte; 0x00 is an
// ordinary byte inside a frame.
namespace trama {
constexpr char Inicio = 0x02;
constexpr char Fin = 0x03;
constexpr char Terminador = 0x0D;
// The longest text the check value takes; longer is "Subscript out of range".
constexpr int MaxCheck = 1024;
} // namespace trama

// The check value of a frame built so far, from 0x02 to 0x03. A "~" counts as
// 0x00 here though it goes out on the line as it is, so that a "~" in a text
// adds nothing to the check value; the scale reckons the same way. The length
// term is that of the whole frame, check value and 0x0D counted. The result
// lies in 0x40..0x7F and can never be taken for 0x02, 0x03 or 0x0D.
int CalCheck(const QByteArray& trama);
// Appends the check value and the terminator to a frame that ends in 0x03.
void cerrarTrama(QByteArray& trama);

// The opening frame carries the number of the scale it addresses.
QByteArray TramaApertura(int16_t numEquipo);
// The closing frame tells the scale that the label is complete.
QByteArray TramaCierre();

// Free text `indice` (0..14) of the label, kind "9:". In Greek and Polish
// the text passes through the character table first, which reads the
// table file again (hence the table in and out).
QByteArray TramaTextoLibre(const ModBase& mb, TablaCaracteres& tabla, int indice);
// Field `numero` (1..36), kind "99", with its send coordinates.
QByteArray TramaCampo(const ModBase& mb, const CoordenadasEnvio& coordenadas, int numero);
// The two fixed text lines, kind "90".
QByteArray TramaTextosFijos(const ModBase& mb, TablaCaracteres& tabla);

// What has arrived so far of one reply of the scale. The reply ends with the
// last byte received being 0x0D, however the pieces fell; a 0x0D inside a
// piece ends nothing. Only the bytes 2, 3 and 4 (counting from 1) carry
// meaning; the rest and the length are not looked at.
class LectorRespuesta {
public:
    void vaciar() { m_texto.clear(); }
    void agregar(const QByteArray& pieza) { m_texto += pieza; }
    const QByteArray& texto() const { return m_texto; }

    bool completa() const { return !m_texto.isEmpty() && m_texto.back() == trama::Terminador; }
    // 0 accepted: bytes 3 and 4 are "00"; 1 anything else, a short reply too.
    int16_t resultado() const;
    // The scale refuses the opening frame with 0x15 in byte 2.
    bool rechazaApertura() const;

private:
    QByteArray m_texto;
};
