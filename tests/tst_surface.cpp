// The main window as a person uses it: the mouse and the keys on the
// surface, the pop-up menus, the tool bar and the model check box, on the
// offscreen platform.
#include "Catalogo.h"
#include "CatalogoCampos.h"
#include "Cuadro.h"
#include "frmBase.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"

Q_DECLARE_METATYPE(QList<Answer>)

namespace {

Qt::CursorShape punteroArrastre()
{
    return QGuiApplication::overrideCursor() ? QGuiApplication::overrideCursor()->shape()
                                             : Qt::BitmapCursor;
}

} // namespace

class TestSurface : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;
    ScriptedInteraction m_ui;
    std::unique_ptr<frmBase> m_w;

    void abrir(int modelo = 1, const char* tipo = "V")
    {
        m_w.reset();
        m_dir.reset(new ProgramDir);
        m_mb.reset(new ModBase);
        m_dir->prepare(*m_mb);
        m_mb->ModeloNuevo = static_cast<int16_t>(modelo);
        m_mb->TipoEtiqueta = tipo;
        m_ui.log.clear();
        m_ui.answers.clear();
        m_w.reset(new frmBase(*m_mb, m_ui));
        recorrido::mostrar(*m_w);
        m_w->activateWindow();
    }

    Cuadro* cuadro() const { return m_w->cuadro(); }
    // Where field n stands on the label, in surface units.
    QPoint pos(int n) const { return {m_mb->Campos(n).PosHor, m_mb->Campos(n).PosVer}; }
    // The point of the surface (in surface units) as the widget sees it.
    QPoint en(double hor, double ver) const { return cuadro()->puntoDe(hor, ver).toPoint(); }
    template <typename T> T* hijo(const QString& nombre) const
    {
        return recorrido::hijo<T>(*m_w, nombre);
    }
    // A field on the label at (hor, ver), its box laid out by a refresh.
    void poner(int n, int hor, int ver)
    {
        Campo& c = m_mb->Campos(n);
        c.Presente = "1";
        c.PosHor = static_cast<int16_t>(hor);
        c.PosVer = static_cast<int16_t>(ver);
        m_w->refresh();
    }
    // The pop-up `nombre`, opened by a right press on `w` at `p`.
    QMenu* menu(QWidget* w, QPoint p, const char* nombre) const
    {
        QTest::mousePress(w, Qt::RightButton, {}, p);
        QMenu* m = hijo<QMenu>(nombre);
        if (!QTest::qWaitFor([m] { return m->isVisible(); }))
            qFatal("%s did not open", nombre);
        return m;
    }
    // Left press at `desde`, moves to `hasta`, and what the pointer showed
    // just before the release.
    Qt::CursorShape arrastrar(QPoint desde, QPoint hasta)
    {
        QTest::mousePress(cuadro(), Qt::LeftButton, {}, desde);
        QTest::mouseMove(cuadro(), (desde + hasta) / 2);
        QTest::mouseMove(cuadro(), hasta);
        const Qt::CursorShape forma = punteroArrastre();
        QTest::mouseRelease(cuadro(), Qt::LeftButton, {}, hasta);
        return forma;
    }

private slots:
    void init() { abrir(); }

    // The keyboard on the selection, and undo and redo by their keys: each
    // press one step, a drag one step, and the entries say what they undo.
    void tecladoYDeshacer()
    {
        QWidget* w = m_w.get();
        // A palette button by its mnemonic: the weight comes onto the label.
        const QChar letra = letraMnemonico(hijo<QPushButton>("CBDisplay2")->text());
        QTest::keyClick(w, letra.toLatin1(), Qt::AltModifier);
        QTRY_COMPARE(m_mb->Campos(11).Presente, QByteArray("1"));
        // No two letters alike among the menu bar and the palette.
        QStringList letras;
        for (QAction* a : m_w->menuBar()->actions())
            letras.append(letraMnemonico(a->text()));
        for (QPushButton* b : m_w->findChildren<QPushButton*>(QRegularExpression("^CBDisplay")))
            if (b->isVisible() && !letraMnemonico(b->text()).isNull())
                letras.append(letraMnemonico(b->text()));
        QCOMPARE(QSet<QString>(letras.begin(), letras.end()).size(), letras.size());

        poner(11, 10, 10);
        poner(12, 30, 20);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(11, 11));
        QTest::keyClick(w, Qt::Key_Right);
        QTest::keyClick(w, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(pos(11), QPoint(11, 15));
        arrastrar(en(31, 21), en(26, 31));
        QCOMPARE(pos(12), QPoint(25, 30)); // alone: it was not selected
        QAction* deshacer = hijo<QAction>("mnuEtiquetaDeshacer");
        QCOMPARE(deshacer->text(), QStringLiteral("&Deshacer ") + m_mb->Textos(2202));

        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_mb->Campos(12).PosVer, int16_t(20));
        QCOMPARE(cuadro()->rectCaja(12).topLeft(), cuadro()->puntoDe(30, 20));
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_mb->Campos(11).PosVer, int16_t(10));
        QTest::keyClick(w, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(m_mb->Campos(11).PosVer, int16_t(15));
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_mb->Campos(12).PosVer, int16_t(30));
        QVERIFY(!hijo<QAction>("mnuEtiquetaRehacer")->isEnabled());

        QTest::keyClick(w, Qt::Key_Delete);
        QCOMPARE(m_mb->Campos(11).Presente, QByteArray("0"));
        QCOMPARE(deshacer->text(), QStringLiteral("&Deshacer ") + m_mb->Textos(2204));
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_mb->Campos(11).Presente, QByteArray("1"));
        QVERIFY(m_w->editor().superficie.Imagen(11).visible);
        QVERIFY(m_mb->Modificado);
    }

    // At every zoom a click moves nothing and a drag lands where it lands
    // at true size; the keys and the wheel step the zoom, Ctrl+0 resets it. The
    // points lie a tenth past a unit: at 50 % a pixel is half a unit wide,
    // and the pixel under them still stands for the same unit.
    void zoomArrastre_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::newRow("50 %") << 0.5;
        QTest::newRow("800 %") << 8.0;
    }

    void zoomArrastre()
    {
        QFETCH(double, zoom);
        poner(12, 10, 20);
        QWidget* w = m_w.get();
        m_w->fijarZoom(zoom);
        QTest::mouseClick(cuadro(), Qt::LeftButton, {}, en(11.1, 21.1));
        QCOMPARE(pos(12), QPoint(10, 20));
        arrastrar(en(11.1, 21.1), en(25.1, 30.1));
        QCOMPARE(pos(12), QPoint(24, 29));
        QCOMPARE(cuadro()->rectCaja(12).topLeft(), cuadro()->puntoDe(24, 29));

        QTest::keyClick(w, Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(cuadro()->zoom(), Zoom::alejar(zoom));
        // The wheel zooms about the pointer: what was under it stays there.
        const QPointF puntero(150, 100);
        const QPointF unidades = cuadro()->unidadesDe(puntero);
        const QPoint global = cuadro()->mapToGlobal(puntero.toPoint());
        QWheelEvent rueda(puntero, global, QPoint(), QPoint(0, QWheelEvent::DefaultDeltasPerStep),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(cuadro(), &rueda);
        QCOMPARE(cuadro()->zoom(), Zoom::acercar(Zoom::alejar(zoom)));
        QCoreApplication::processEvents();
        const QScrollBar* barra = hijo<QScrollArea>("areaLienzo")->horizontalScrollBar();
        if (barra->value() > 0 && barra->value() < barra->maximum())
            QVERIFY(std::abs(cuadro()->unidadesDe(cuadro()->mapFromGlobal(global)).x() -
                             unidades.x()) < 0.5);
        QTest::keyClick(w, Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(cuadro()->zoom(), 1.0);
    }

    // A dialog's change and the fields it places are one step: the free
    // text typed and its field on the surface go and come back together.
    void deshacerDialogo()
    {
        const QByteArray antes = m_mb->TextoLibre(5);
        {
            recorrido::AlAbrirse persona([](QWidget& d) {
                QTest::mouseClick(recorrido::hijo<QCheckBox>(d, "ChTXL6"), Qt::LeftButton);
                QTest::keyClicks(recorrido::hijo<QLineEdit>(d, "TextTXL6"), "QUESO");
                QTest::mouseClick(recorrido::hijo<QPushButton>(d, "OKButton"), Qt::LeftButton);
                QTest::mouseClick(recorrido::hijo<QPushButton>(d, "SalirButton"), Qt::LeftButton);
            });
            QTest::mouseClick(hijo<QPushButton>("CBDisplay0"), Qt::LeftButton);
        }
        const int campo = campoDeTextoLibre(6);
        QCOMPARE(m_mb->Campos(campo).Presente, QByteArray("1"));
        const QByteArray escrito = m_mb->TextoLibre(5);

        // From the name box too: the label's undo, not the box's own.
        m_w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_w.get()));
        QWidget* w = hijo<QLineEdit>("TxtNomEtiq");
        w->setFocus();
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!m_w->editor().superficie.Imagen(campo).visible);
        QCOMPARE(m_mb->TextoLibre(5), antes);
        QTest::keyClick(w, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(m_mb->Campos(campo).Presente, QByteArray("1"));
        QCOMPARE(m_mb->TextoLibre(5), escrito);
    }

    void cleanup()
    {
        m_w.reset();
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }

    // A field comes from the palette to the corner, in the band; dragged by
    // the mouse it lands where the pointer leaves it, or stays where it was
    // when the box would pass the limits, with the no-drop pointer shown.
    // Each limit's border is in the editor's own tests; here one of each kind.
    void arrastre_data()
    {
        QTest::addColumn<int>("largo"); // of the label
        QTest::addColumn<int>("left");  // where the box's top left is taken
        QTest::addColumn<int>("top");
        QTest::addColumn<bool>("admitido");
        QTest::newRow("middle") << 45 << 20 << 20 << true;
        QTest::newRow("left band") << 45 << 2 << 20 << false;
        QTest::newRow("above the guide") << 45 << 20 << 7 << false;
        QTest::newRow("right edge at 54") << 45 << 43 << 20 << false;
        QTest::newRow("bottom at 60 of a 60 label") << 60 << 20 << 57 << true;
        QTest::newRow("bottom at 61 of a 60 label") << 60 << 20 << 58 << false;
    }

    void arrastre()
    {
        QFETCH(int, largo);
        QFETCH(int, left);
        QFETCH(int, top);
        QFETCH(bool, admitido);
        hijo<QScrollBar>("VSVer")->setValue(largo);
        QTest::mouseClick(hijo<QPushButton>("CBDisplay2"), Qt::LeftButton); // Peso
        const Campo& peso = m_mb->Campos(11);
        // Gripped one unit in on each axis.
        const Qt::CursorShape forma = arrastrar(en(1, 1), en(left + 1, top + 1));
        QCOMPARE(forma, admitido ? Qt::ArrowCursor : Qt::ForbiddenCursor);
        QCOMPARE(pos(11), admitido ? QPoint(left, top) : QPoint());
        QVERIFY(!QGuiApplication::overrideCursor());
        // The box is drawn where the record says.
        QCOMPARE(cuadro()->cajaEn(en(peso.PosHor + 0.5, peso.PosVer + 0.5)), 11);
        // The drop's read-out is the box's place, taken or not.
        QCOMPARE(hijo<QLabel>("StatusBar1Panel2")->text(), QStringLiteral("X: %1").arg(left));
    }

    // Double clicks build the selection; a drag of one of its fields moves
    // them all, and a field let go on the window's text boxes stays.
    void seleccionYGrupo()
    {
        poner(11, 10, 10);
        poner(12, 30, 20);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(11, 11));
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(31, 21));
        QVERIFY(m_w->editor().superficie.Imagen(12).rojo);

        arrastrar(en(11, 11), en(16, 15));
        const QPoint d = pos(11) - QPoint(10, 10);
        QCOMPARE(pos(12) - QPoint(30, 20), d);
        // The boxes show the move once, the records twice; a command that
        // has nothing to do with them leaves the boxes where they stand.
        const QRectF movida = cuadro()->rectCaja(12);
        QCOMPARE(movida.topLeft(), cuadro()->puntoDe(30 + d.x() / 2, 20 + d.y() / 2));
        hijo<QAction>("mnuEtiquetaPeso")->trigger();
        QCOMPARE(cuadro()->rectCaja(12), movida);

        // A second double click takes a field out of the selection.
        m_w->refresh();
        const QPointF centro = cuadro()->rectCaja(12).center();
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, centro.toPoint());
        QVERIFY(!m_mb->Campos(12).Seleccionado);
        QVERIFY(!m_w->editor().superficie.Imagen(12).rojo);

        // Dragged out of the surface onto the vertical size box: nothing moves.
        const QPoint caja =
            cuadro()->mapFromGlobal(hijo<QLineEdit>("TxtValorVer")->mapToGlobal(QPoint(5, 5)));
        const QPointF antes = cuadro()->rectCaja(12).center();
        arrastrar(antes.toPoint(), caja);
        QCOMPARE(cuadro()->rectCaja(12).center(), antes);
    }

    // A click, or a double click, on a box moves nothing, wherever in the box
    // it lands: also on the pixels that fall on a half unit.
    void clicNoMueve_data()
    {
        QTest::addColumn<int>("dx"); // pixels into the box
        QTest::addColumn<int>("dy");
        for (int dx : {5, 105})
            QTest::newRow(qPrintable(QStringLiteral("%1 px in").arg(dx))) << dx << 2;
        QTest::newRow("on the half unit down") << 2 << 3;
    }

    void clicNoMueve()
    {
        QFETCH(int, dx);
        QFETCH(int, dy);
        poner(17, 11, 13); // a date, 12.5 wide, at odd places
        const QPoint p = cuadro()->rectCaja(17).topLeft().toPoint() + QPoint(dx, dy);
        QTest::mouseClick(cuadro(), Qt::LeftButton, {}, p);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, p);
        QVERIFY(m_mb->Campos(17).Seleccionado);
        QCOMPARE(pos(17), QPoint(11, 13));
        QVERIFY(!m_mb->Modificado);
    }

    // Centring from the tool bar leaves the box at its fractional left; the
    // next command that is no load leaves it there.
    void centrado()
    {
        poner(17, 11, 20);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(12, 21));
        QToolBar* tb = hijo<QToolBar>("Toolbar1");
        QTest::mouseClick(tb->widgetForAction(hijo<QAction>("JustCentr")), Qt::LeftButton);
        QCOMPARE(cuadro()->rectCaja(17).left(), cuadro()->puntoDe(22.25, 0).x());
        QCOMPARE(m_mb->Campos(17).PosHor, int16_t(22));
        hijo<QAction>("mnuEtiquetaPeso")->trigger();
        QCOMPARE(cuadro()->rectCaja(17).left(), cuadro()->puntoDe(22.25, 0).x());
    }

    // A free text's box tells which free text it is when the pointer rests on it.
    void consejoTextoLibre()
    {
        m_mb->TextoLibre(5) = "OFERTA"; // free text 6, the second group's first
        poner(27, 10, 20);
        const QPoint p = cuadro()->rectCaja(27).center().toPoint();
        QHelpEvent ayuda(QEvent::ToolTip, p, cuadro()->mapToGlobal(p));
        QApplication::sendEvent(cuadro(), &ayuda);
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), QStringLiteral("1 ") + m_mb->Textos(1307));
    }

    // The pop-ups are built from what the editor prepares: entries by label
    // kind and model, the palette likewise, and each entry runs its own index.
    // Kind and model act apart here; every pair is in the editor's tests.
    void menusPorTipoYModelo_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QString>("tipo");
        QTest::newRow("new, packing") << 1 << "V";
        QTest::newRow("old, total") << 0 << "T";
    }

    void menusPorTipoYModelo()
    {
        QFETCH(int, modelo);
        QFETCH(QString, tipo);
        abrir(modelo, qPrintable(tipo));
        const bool total = tipo == "T";
        poner(3, 10, 30);
        m_w->editor().PaintFormLoad();
        m_w->refresh();

        QCOMPARE(hijo<QPushButton>("CBDisplay11")->isVisible(), total);
        QCOMPARE(hijo<QPushButton>("CBDisplay12")->isVisible(), !total);
        QCOMPARE(hijo<QPushButton>("CBDisplay14")->isVisible(), modelo == 1);

        QMenu* m = menu(cuadro(), en(20, 20), "mnuVisualiza");
        QCOMPARE(hijo<QAction>("mnuVisual2")->isEnabled(), total);
        QCOMPARE(hijo<QAction>("mnuVisual12")->isVisible(), modelo == 1);
        QVERIFY(hijo<QAction>("mnuDES2")->isChecked());
        // Entry 1 is the tare: it lands at the point pressed.
        hijo<QAction>("mnuVisual1")->trigger();
        m->close();
        QCOMPARE(cuadro()->cajaEn(en(20.5, 20.5)), 12);
        QCOMPARE(pos(12), QPoint(20, 20));

        // The size menu of a field: the bar code has one size only.
        poner(16, 10, 15);
        QMenu* der = menu(cuadro(), en(11, 16), "mnuDerecho");
        QVERIFY(hijo<QAction>("mnuDer0")->isChecked());
        QVERIFY(!hijo<QAction>("mnuDer1")->isEnabled());
        hijo<QAction>("mnuDer4")->trigger();
        der->close();
        QCOMPARE(cuadro()->cajaEn(en(11, 16)), -1);
    }

    // The left band's menu toggles the bands, and is captioned by their state.
    void bandas()
    {
        for (int vez = 0; vez < 2; ++vez) {
            const bool puestas = m_mb->Sombreado == 1;
            QMenu* m = menu(cuadro(), en(1, 20), "mnuOcultar");
            QCOMPARE(hijo<QAction>("mnuBandas")->text(), m_mb->Textos(puestas ? 495 : 1311));
            hijo<QAction>("mnuBandas")->trigger();
            m->close();
            QCOMPARE(m_mb->Sombreado == 1, !puestas);
            QCOMPARE(m_w->editor().superficie.Shape2.visible, !puestas);
        }
    }

    // A right press on a fixed text label opens its menu; Borrar empties it.
    void textoFijo()
    {
        m_mb->TextoFijo(1) = "HECHO EN CASA";
        m_w->refresh();
        QLabel* l = hijo<QLabel>("lblTXF2");
        QMenu* m = menu(l, QPoint(2, 2), "mnuDerecho2");
        QVERIFY(hijo<QAction>("mnuDerTXFborrar")->isEnabled());
        hijo<QAction>("mnuDerTXFborrar")->trigger();
        m->close();
        QVERIFY(m_mb->TextoFijo(1).isEmpty());
        QCOMPARE(l->text(), QStringLiteral("2 ") + m_mb->Textos(1336));
        menu(hijo<QLabel>("lblTXF1"), QPoint(2, 2), "mnuDerecho2");
        QVERIFY(!hijo<QAction>("mnuDerTXFborrar")->isEnabled());
        m->close();
    }

    // One press on the model box is one switch, whatever the platform does
    // on the release; a cancelled question switches nothing.
    void compatibilidad_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QList<Answer>>("respuestas"); // asked of a modified label only
        QTest::addColumn<bool>("cambia");
        QTest::newRow("new to old") << 1 << QList<Answer>{} << true;
        QTest::newRow("old to new") << 0 << QList<Answer>{} << true;
        QTest::newRow("modified, no") << 1 << QList<Answer>{Answer::No} << true;
        QTest::newRow("modified, cancel") << 1 << QList<Answer>{Answer::Cancel} << false;
    }

    void compatibilidad()
    {
        QFETCH(int, modelo);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(bool, cambia);
        abrir(modelo);
        poner(26, 10, 20); // the lot is only on the new model's surface
        m_mb->Modificado = !respuestas.isEmpty();
        m_ui.answers = respuestas;
        QCheckBox* chk = hijo<QCheckBox>("ChkCompatibilidad");
        // On the box itself, where the platform's own toggle would act.
        QTest::mouseClick(chk, Qt::LeftButton, {}, QPoint(7, chk->height() / 2));
        const bool nuevo = cambia ? modelo == 0 : modelo == 1;
        QCOMPARE(m_mb->ModeloNuevo, int16_t(nuevo ? 1 : 0));
        QCOMPARE(chk->isChecked(), nuevo);
        QCOMPARE(hijo<QPushButton>("CBDisplay14")->isVisible(), nuevo);
        QCOMPARE(hijo<QLineEdit>("TxtNumEtiq")->text(),
                 QString::number(nuevo ? 3 : (cambia ? 1 : 3)));
        if (!nuevo)
            QVERIFY(!m_w->editor().superficie.Imagen(26).visible);
        QCOMPARE(m_ui.answers.size(), 0);
    }

    // Each button of the tool bar runs its command, asking first where the
    // command does; a question is asked of a modified label only.
    void toolbar_data()
    {
        QTest::addColumn<QString>("clave");
        QTest::addColumn<QList<Answer>>("respuestas");
        QTest::addColumn<QString>("efecto");
        QTest::newRow("60x57, no") << "Eti60" << QList<Answer>{Answer::No} << "60";
        QTest::newRow("60x57, cancelled") << "Eti60" << QList<Answer>{Answer::Cancel} << "45";
        QTest::newRow("convert") << "Convertir" << QList<Answer>{} << "T";
        QTest::newRow("convert, cancelled") << "Convertir" << QList<Answer>{Answer::Cancel} << "V";
        QTest::newRow("save asks for a file") << "Guardar" << QList<Answer>{} << "save";
        QTest::newRow("open asks for a file") << "Abrir" << QList<Answer>{} << "open";
        QTest::newRow("exit") << "Salir" << QList<Answer>{Answer::No} << "closed";
        QTest::newRow("new label") << "Nueva" << QList<Answer>{} << "new";
    }

    void toolbar()
    {
        QFETCH(QString, clave);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(QString, efecto);
        bool cerrado = false;
        connect(m_w.get(), &frmBase::cerrado, this, [&] { cerrado = true; });
        poner(11, 20, 20);
        m_mb->Modificado = !respuestas.isEmpty();
        m_ui.answers = respuestas;
        // The new label's dialog, answered as it stands on the screen.
        recorrido::AlAbrirse persona([](QWidget& d) {
            QTest::mouseClick(recorrido::hijo<QPushButton>(d, "OKButton"), Qt::LeftButton);
        });
        QAction* a = hijo<QAction>(clave);
        QVERIFY(!a->icon().isNull());
        QTest::mouseClick(hijo<QToolBar>("Toolbar1")->widgetForAction(a), Qt::LeftButton);
        QCOMPARE(m_ui.answers.size(), 0);
        if (efecto == "60" || efecto == "45") {
            QCOMPARE(m_mb->AnchoEtiqueta, efecto.toLatin1());
            QCOMPARE(hijo<QLineEdit>("TxtValorVer")->text(), efecto);
        } else if (efecto == "T" || efecto == "V") {
            QCOMPARE(m_mb->TipoEtiqueta, efecto.toLatin1());
            QCOMPARE(a->toolTip(), m_mb->Textos(efecto == "T" ? 1341 : 1340));
            QCOMPARE(hijo<QPushButton>("CBDisplay11")->isVisible(), efecto == "T");
        } else if (efecto == "closed") {
            QVERIFY(cerrado);
        } else if (efecto == "new") {
            // The new label has no fields, and the surface shows none.
            QCOMPARE(cuadro()->cajaEn(en(21, 21)), -1);
        } else {
            QCOMPARE(m_ui.log.filter(efecto + ": ").size(), 1);
        }
    }
};

QTEST_MAIN(TestSurface)
#include "tst_surface.moc"
