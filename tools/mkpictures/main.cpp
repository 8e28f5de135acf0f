// korvo-mkpictures RESDIR BUILTINDIR
//
// Writes the preview's pictures as placeable metafiles: each sample text in
// its typeface at the size the scale prints it, and the bar code as a bitmap
// of a real EAN-13 symbol. Coordinates are hundredths of a millimetre, so the
// natural size of each picture is exact.
#include <cmath>
#include <cstdio>
#include <QDir>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <string>
#include <vector>

extern "C" {
#include <uemf.h>
#include <uwmf.h>
}

namespace {

constexpr int kUnidadesPorPulgada = 2540; // 0.01 mm
constexpr double kAlto = 4.2;             // every text picture's height in mm

// The free fonts that stand in for the typefaces the labels were designed
// with: the shapes differ, the room they take is the same, since every
// character is placed where the sample's own font put it.
const char* kSerif = "DejaVu Serif";    // the numbers' book face
const char* kMono = "DejaVu Sans Mono"; // the OCR lines
const char* kSans = "DejaVu Sans";      // the plain sans faces

struct Metafile {
    WMFTRACK* wt = nullptr;
    WMFHANDLES* wht = nullptr;

    Metafile(const QString& path, double anchoMm, double altoMm)
    {
        if (wmf_start(path.toLocal8Bit().constData(), 4096, 4096, &wt) ||
            wmf_htable_create(64, 64, &wht)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            std::exit(1);
        }
        U_PAIRF* size = U_PAIRF_set(anchoMm / 25.4, altoMm / 25.4);
        wmf_header_append(
            reinterpret_cast<U_METARECORD*>(U_WMRHEADER_set(size, kUnidadesPorPulgada)), wt, 1);
        std::free(size);
        add(U_WMRSETMAPMODE_set(U_MM_ANISOTROPIC));
        add(U_WMRSETWINDOWORG_set(point16_set(0, 0)));
        add(U_WMRSETWINDOWEXT_set(
            point16_set(int16_t(std::lround(anchoMm * 100)), int16_t(std::lround(altoMm * 100)))));
        add(U_WMRSETBKMODE_set(U_TRANSPARENT));
    }
    void add(char* rec) { wmf_append(reinterpret_cast<U_METARECORD*>(rec), wt, 1); }
    void finish()
    {
        add(U_WMREOF_set());
        wmf_finish(wt);
        wmf_free(&wt);
        wmf_htable_free(&wht);
    }
};

// A text that fills the picture from side to side and top to bottom.
void texto(const QString& path, const QString& muestra, const char* familia, double anchoMm)
{
    Metafile m(path, anchoMm, kAlto);
    const int16_t ancho = int16_t(std::lround(anchoMm * 100));
    const int16_t alto = int16_t(std::lround(kAlto * 100));
    if (!muestra.isEmpty()) {
        // The font is asked for by its cell height, which is the picture's.
        QFont f(QString::fromLatin1(familia));
        f.setPixelSize(1000);
        f.setKerning(false);
        const QFontMetricsF fm(f);
        const double em = alto * 1000 / (fm.ascent() + fm.descent());
        double total = 0;
        std::vector<double> avances;
        for (QChar c : muestra) {
            avances.push_back(fm.horizontalAdvance(c) * em / 1000);
            total += avances.back();
        }
        const double escala = ancho / total;
        const int16_t anchoLetra = int16_t(std::lround(fm.averageCharWidth() * em / 1000 * escala));
        std::vector<int16_t> dx;
        int acumulado = 0;
        double ideal = 0;
        for (double a : avances) {
            ideal += a * escala;
            dx.push_back(int16_t(std::lround(ideal) - acumulado));
            acumulado += dx.back();
        }
        U_FONT* font = U_FONT_set(alto, anchoLetra, 0, 0, U_FW_NORMAL, 0, 0, 0, U_ANSI_CHARSET,
                                  U_OUT_DEFAULT_PRECIS, U_CLIP_DEFAULT_PRECIS, U_DEFAULT_QUALITY,
                                  U_DEFAULT_PITCH | U_FF_DONTCARE, const_cast<char*>(familia));
        uint32_t ih = 0;
        m.add(wcreatefontindirect_set(&ih, m.wht, font));
        m.add(wselectobject_set(ih, m.wht));
        std::free(font);
        m.add(U_WMRSETTEXTCOLOR_set(U_RGB(0, 0, 0)));
        m.add(U_WMRSETTEXTALIGN_set(U_TA_TOP | U_TA_LEFT | U_TA_NOUPDATECP));
        const QByteArray bytes = muestra.toLatin1();
        m.add(U_WMREXTTEXTOUT_set(point16_set(0, 0), int16_t(bytes.size()), 0, bytes.constData(),
                                  dx.data(), U_RECT16{}));
    }
    m.finish();
}

// The thirteen digits' bars, module by module: 1 black, 0 white.
std::string ean13(const std::string& doce)
{
    static const char* L[] = {"0001101", "0011001", "0010011", "0111101", "0100011",
                              "0110001", "0101111", "0111011", "0110111", "0001011"};
    static const char* G[] = {"0100111", "0110011", "0011011", "0100001", "0011101",
                              "0111001", "0000101", "0010001", "0001001", "0010111"};
    static const char* R[] = {"1110010", "1100110", "1101100", "1000010", "1011100",
                              "1001110", "1010000", "1000100", "1001000", "1110100"};
    static const char* paridad[] = {"LLLLLL", "LLGLGG", "LLGGLG", "LLGGGL", "LGLLGG",
                                    "LGGLLG", "LGGGLL", "LGLGLG", "LGLGGL", "LGGLGL"};
    int suma = 0;
    for (int i = 0; i < 12; ++i)
        suma += (doce[i] - '0') * (i % 2 ? 3 : 1);
    const std::string digitos = doce + char('0' + (10 - suma % 10) % 10);
    std::string m = "101";
    const char* par = paridad[digitos[0] - '0'];
    for (int i = 1; i <= 6; ++i)
        m += (par[i - 1] == 'L' ? L : G)[digitos[i] - '0'];
    m += "01010";
    for (int i = 7; i <= 12; ++i)
        m += R[digitos[i] - '0'];
    m += "101";
    return m; // 95 modules
}

void codigoBarras(const QString& path)
{
    const int W = 205, H = 76;
    const std::string modulos = ean13("841234567890");
    // Two pixels a module, the rest as quiet zone; the guard bars run to the
    // bottom, the others stop short of it, where the digits would stand.
    const int izquierda = (W - 2 * 95) / 2;
    const int fila = (W * 3 + 3) & ~3;
    std::vector<char> px(size_t(fila) * H, char(0xFF));
    const auto esGuarda = [](int i) { return i < 3 || (i >= 45 && i < 50) || i >= 92; };
    for (int i = 0; i < 95; ++i) {
        if (modulos[size_t(i)] != '1')
            continue;
        const int largo = esGuarda(i) ? H - 2 : H - 12;
        for (int y = 2; y < 2 + largo; ++y) {
            // Rows go from the bottom up.
            char* row = px.data() + size_t(H - 1 - y) * fila;
            for (int x = izquierda + 2 * i; x < izquierda + 2 * i + 2; ++x)
                row[x * 3] = row[x * 3 + 1] = row[x * 3 + 2] = 0;
        }
    }
    Metafile m(path, 26, 10);
    U_BITMAPINFOHEADER bmih =
        bitmapinfoheader_set(W, H, 1, 24, U_BI_RGB, uint32_t(px.size()), 3780, 3780, 0, 0);
    PU_BITMAPINFO bmi = bitmapinfo_set(bmih, nullptr);
    m.add(U_WMRSTRETCHDIB_set(point16_set(0, 0), point16_set(2600, 1000), point16_set(0, 0),
                              point16_set(W, H), U_DIB_RGB_COLORS, U_SRCCOPY, bmi,
                              uint32_t(px.size()), px.data()));
    std::free(bmi);
    m.finish();
}

// The natural width of a row of n letters: the samples measure 2.8 mm for
// one, 9.9 for five, 11.6 for six, 26.5 for fifteen and 44.1 for twenty-five.
double anchoLetras(int n)
{
    static const double puntos[][2] = {{1, 2.8}, {5, 9.9}, {6, 11.6}, {15, 26.5}, {25, 44.1}};
    if (n <= 0)
        return 0.01; // nothing to show, but a frame all the same
    for (int i = 1; i < 5; ++i) {
        if (n <= puntos[i][0]) {
            const double t = (n - puntos[i - 1][0]) / (puntos[i][0] - puntos[i - 1][0]);
            return puntos[i - 1][1] + t * (puntos[i][1] - puntos[i - 1][1]);
        }
    }
    return 44.1;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: korvo-mkpictures RESDIR BUILTINDIR\n");
        return 2;
    }
    const QDir res(QString::fromLocal8Bit(argv[1]));
    const QDir propias(QString::fromLocal8Bit(argv[2]));

    // Stock files beside the program.
    for (int n = 0; n <= 25; ++n)
        texto(res.filePath(QStringLiteral("%1A.wmf").arg(n)), QString(n, QLatin1Char('A')), kMono,
              anchoLetras(n));
    // The double-width line: twelve letters over the 47 mm that a line of
    // twenty-five takes at normal width, so each is twice as wide.
    texto(res.filePath(QStringLiteral("12A.wmf")), QString(12, QLatin1Char('A')), kMono, 47);
    // The count of operations on a total label, in the numbers' face.
    texto(res.filePath(QStringLiteral("OPER.wmf")), QStringLiteral("999 OPER"), kSerif, 10.9);

    // The items' own pictures, built into the program.
    texto(propias.filePath(QStringLiteral("pesoaprox.wmf")), QStringLiteral("999999999999999"),
          kSerif, 20.8);
    texto(propias.filePath(QStringLiteral("descriptivo.wmf")), QString(25, QLatin1Char('A')), kMono,
          44.1);
    texto(propias.filePath(QStringLiteral("peso.wmf")), QStringLiteral("99.999"), kSerif, 8.5);
    texto(propias.filePath(QStringLiteral("importe.wmf")), QStringLiteral("99999.99"), kSerif,
          10.9);
    texto(propias.filePath(QStringLiteral("moneda.wmf")), QStringLiteral("(1234567PTAS)"), kSans,
          21.5);
    codigoBarras(propias.filePath(QStringLiteral("barras.wmf")));
    texto(propias.filePath(QStringLiteral("fecha.wmf")), QStringLiteral("01JUN07"), kSans, 12.3);
    texto(propias.filePath(QStringLiteral("total.wmf")), QStringLiteral("ETIQUETA TOTAL"), kSans,
          24.7);
    texto(propias.filePath(QStringLiteral("lote.wmf")), QStringLiteral("123456"), kSerif, 9.9);
    for (int n = 1; n <= 15; ++n)
        texto(propias.filePath(QStringLiteral("%1A.wmf").arg(n)), QString(n, QLatin1Char('A')),
              kMono, anchoLetras(n));
    return 0;
}
