// The main window as a person uses it: the mouse and the keys on the
// surface, the pop-up menus, the tool bar and the model check box, on the
// offscreen platform. What each command does to the label is the editor's
// tests' business; these tests see that the widgets reach it.
#include "CatalogoCampos.h"
#include "Cuadro.h"
#include "FileCommands.h"
#include "frmBase.h"
#include "ModBase.h"
#include "ProgramDir.h"
#include "Recorrido.h"
#include "ScriptedInteraction.h"

Q_DECLARE_METATYPE(QList<Answer>)

class TestSurface : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ProgramDir> m_dir;
    std::unique_ptr<ModBase> m_mb;
    ScriptedInteraction m_ui;
    std::unique_ptr<frmBase> m_w;

    void abrir(int modelo = 1)
    {
        m_w.reset();
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
        m_dir.reset(new ProgramDir);
        m_mb.reset(new ModBase);
        m_dir->prepare(*m_mb);
        m_mb->ModeloNuevo = static_cast<int16_t>(modelo);
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
    template <typename T> T* hijo(const QString& n) const { return recorrido::hijo<T>(*m_w, n); }
    // A field on the label at (hor, ver), its box laid out by a refresh.
    void poner(int n, int hor, int ver)
    {
        Campo& c = m_mb->Campos(n);
        c.Presente = "1";
        c.PosHor = static_cast<int16_t>(hor);
        c.PosVer = static_cast<int16_t>(ver);
        m_w->refresh();
    }
    // The entry `entrada` of the pop-up `nombre`, opened by a right press
    // on `w` at `p`, chosen; the entry as the opening left it.
    QAction* elegir(QWidget* w, QPoint p, const char* nombre, const char* entrada) const
    {
        QTest::mousePress(w, Qt::RightButton, {}, p);
        QMenu* m = hijo<QMenu>(nombre);
        if (!QTest::qWaitFor([m] { return m->isVisible(); }))
            qFatal("%s did not open", nombre);
        QAction* a = hijo<QAction>(entrada);
        a->trigger();
        m->close();
        return a;
    }
    // Left press at `desde`, moves to `hasta`, and what the pointer showed
    // just before the release.
    Qt::CursorShape arrastrar(QPoint desde, QPoint hasta)
    {
        QTest::mousePress(cuadro(), Qt::LeftButton, {}, desde);
        QTest::mouseMove(cuadro(), (desde + hasta) / 2);
        QTest::mouseMove(cuadro(), hasta);
        const QCursor* puntero = QGuiApplication::overrideCursor();
        const Qt::CursorShape forma = puntero ? puntero->shape() : Qt::BitmapCursor;
        QTest::mouseRelease(cuadro(), Qt::LeftButton, {}, hasta);
        return forma;
    }

private slots:
    void init() { abrir(); }

    // Double clicks build the selection and the keys move it; undo and
    // redo by their keys: each press one step, a drag one step, a dialog's
    // change and the fields it places one step.
    void tecladoYDeshacer()
    {
        QWidget* w = m_w.get();
        // A palette button by its mnemonic: the weight comes onto the label.
        const QChar letra = letraMnemonico(hijo<QPushButton>("CBDisplay2")->text());
        QTest::keyClick(w, letra.toLatin1(), Qt::AltModifier);
        QTRY_COMPARE(m_mb->Campos(11).Presente, QByteArray("1"));

        poner(11, 10, 10);
        poner(12, 30, 20);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(11, 11));
        QTest::keyClick(w, Qt::Key_Right);
        QTest::keyClick(w, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(pos(11), QPoint(11, 15));
        arrastrar(en(31, 21), en(26, 31));
        QCOMPARE(pos(12), QPoint(25, 30)); // alone: it was not selected
        // Let go on the window's text boxes, a field stays.
        const QPoint caja =
            cuadro()->mapFromGlobal(hijo<QLineEdit>("TxtValorVer")->mapToGlobal(QPoint(5, 5)));
        arrastrar(en(26, 31), caja);
        QCOMPARE(cuadro()->cajaEn(en(25.5, 30.5)), 12);

        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(pos(11), QPoint(11, 10));
        QTest::keyClick(w, Qt::Key_Y, Qt::ControlModifier);
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(pos(12), QPoint(25, 30));
        QTest::keyClick(w, Qt::Key_Delete);
        QCOMPARE(m_mb->Campos(11).Presente, QByteArray("0"));
        QTest::keyClick(w, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(m_w->editor().superficie.Imagen(11).visible);
        // A second double click takes a field out of the selection.
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, en(12, 16));
        QVERIFY(!m_mb->Campos(11).Seleccionado);

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
        QCOMPARE(m_mb->TextoLibre(5), QByteArray("QUESO"));
        // From the name box too: the label's undo, not the box's own.
        m_w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_w.get()));
        QWidget* nombre = hijo<QLineEdit>("TxtNomEtiq");
        nombre->setFocus();
        QTest::keyClick(nombre, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!m_w->editor().superficie.Imagen(campoDeTextoLibre(6)).visible);
        QCOMPARE(m_mb->TextoLibre(5), antes);
    }

    // At every zoom a click moves nothing, and a drag lands where the
    // pointer leaves the box, or leaves it where it was, with the no-drop
    // pointer shown, when the box would pass the limits: here the left band
    // and the length the scroll bar gives the label; each limit's border is
    // in the editor's own tests. The points lie a tenth past a unit: at 50 %
    // a pixel is half a unit wide, and the pixel under them still stands for
    // the same unit. The keys and the wheel step the zoom, Ctrl+0 resets it.
    void arrastre_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::addColumn<int>("largo");      // of the label
        QTest::addColumn<QPoint>("destino"); // where the box's top left is taken
        QTest::addColumn<bool>("admitido");
        QTest::newRow("50 %") << 0.5 << 45 << QPoint(24, 29) << true;
        QTest::newRow("800 %") << 8.0 << 45 << QPoint(24, 29) << true;
        QTest::newRow("left band") << 1.0 << 45 << QPoint(2, 20) << false;
        QTest::newRow("bottom at 61 of a 60 label") << 1.0 << 60 << QPoint(20, 58) << false;
    }

    void arrastre()
    {
        QFETCH(double, zoom);
        QFETCH(int, largo);
        QFETCH(QPoint, destino);
        QFETCH(bool, admitido);
        hijo<QScrollBar>("VSVer")->setValue(largo);
        poner(11, 10, 20); // the weight
        m_w->fijarZoom(zoom);
        QTest::mouseClick(cuadro(), Qt::LeftButton, {}, en(11.1, 21.1));
        QCOMPARE(pos(11), QPoint(10, 20));
        const QPoint suelta = en(destino.x() + 1.1, destino.y() + 1.1);
        const Qt::CursorShape forma = arrastrar(en(11.1, 21.1), suelta);
        QCOMPARE(forma, admitido ? Qt::ArrowCursor : Qt::ForbiddenCursor);
        QCOMPARE(pos(11), admitido ? destino : QPoint(10, 20));
        QVERIFY(!QGuiApplication::overrideCursor());
        // The box is drawn where the record says.
        QCOMPARE(cuadro()->cajaEn(en(pos(11).x() + 0.5, pos(11).y() + 0.5)), 11);

        // The wheel zooms about the pointer: what was under it stays there.
        QTest::keyClick(m_w.get(), Qt::Key_Minus, Qt::ControlModifier);
        const QPointF puntero(150, 100);
        const double x = cuadro()->unidadesDe(puntero).x();
        const QPoint global = cuadro()->mapToGlobal(puntero.toPoint());
        QWheelEvent rueda(puntero, global, QPoint(), QPoint(0, QWheelEvent::DefaultDeltasPerStep),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(cuadro(), &rueda);
        QCOMPARE(cuadro()->zoom(), Zoom::acercar(Zoom::alejar(zoom)));
        QCoreApplication::processEvents();
        QVERIFY(std::abs(cuadro()->unidadesDe(cuadro()->mapFromGlobal(global)).x() - x) < 0.5);
        QTest::keyClick(m_w.get(), Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(cuadro()->zoom(), 1.0);
    }

    // A click, or a double click, on a box moves nothing, wherever in the box
    // it lands: also on the pixels that fall on a half unit. Centring from
    // the tool bar then leaves the box at its fractional left; the next
    // command that is no load leaves it there.
    void clicYCentrado_data()
    {
        QTest::addColumn<QPoint>("dentro"); // pixels into the box
        QTest::newRow("5 px in") << QPoint(5, 2);
        QTest::newRow("105 px in") << QPoint(105, 2);
        QTest::newRow("on the half unit down") << QPoint(2, 3);
    }

    void clicYCentrado()
    {
        QFETCH(QPoint, dentro);
        poner(17, 11, 13); // a date, 12.5 wide, at odd places
        const QPoint p = cuadro()->rectCaja(17).topLeft().toPoint() + dentro;
        QTest::mouseClick(cuadro(), Qt::LeftButton, {}, p);
        QTest::mouseDClick(cuadro(), Qt::LeftButton, {}, p); // and selects it, for the centring
        QCOMPARE(pos(17), QPoint(11, 13));
        QVERIFY(!m_mb->Modificado);

        QToolBar* tb = hijo<QToolBar>("Toolbar1");
        QTest::mouseClick(tb->widgetForAction(hijo<QAction>("JustCentr")), Qt::LeftButton);
        QCOMPARE(cuadro()->rectCaja(17).left(), cuadro()->puntoDe(22.25, 0).x());
        hijo<QAction>("mnuEtiquetaPeso")->trigger();
        QCOMPARE(cuadro()->rectCaja(17).left(), cuadro()->puntoDe(22.25, 0).x());
    }

    // Each pop-up opens by a right press where it belongs, and its entries
    // act: the surface's puts its field at the point pressed, a field's
    // deletes it, the left band's toggles the bands and is captioned by
    // their state, a fixed text's empties the text, and only a text. The
    // surface's tool tips name the box under the pointer.
    void menus()
    {
        elegir(cuadro(), en(20, 20), "mnuVisualiza", "mnuVisual1"); // the tare
        QCOMPARE(cuadro()->cajaEn(en(20.5, 20.5)), 12);
        elegir(cuadro(), en(21, 21), "mnuDerecho", "mnuDer4");
        QCOMPARE(cuadro()->cajaEn(en(21, 21)), -1);

        const bool puestas = m_mb->Sombreado == 1;
        QAction* bandas = elegir(cuadro(), en(1, 20), "mnuOcultar", "mnuBandas");
        QCOMPARE(bandas->text(), m_mb->Textos(puestas ? 495 : 1311));
        QCOMPARE(m_w->editor().superficie.Shape2.visible, !puestas);

        m_mb->TextoFijo(1) = "HECHO EN CASA";
        m_w->refresh();
        QLabel* l = hijo<QLabel>("lblTXF2");
        QVERIFY(elegir(l, QPoint(2, 2), "mnuDerecho2", "mnuDerTXFborrar")->isEnabled());
        QVERIFY(m_mb->TextoFijo(1).isEmpty());
        QVERIFY(!elegir(l, QPoint(2, 2), "mnuDerecho2", "mnuDerTXFborrar")->isEnabled());

        // A free text's box tells which free text it is when the pointer rests on it.
        m_mb->TextoLibre(5) = "OFERTA"; // free text 6, the second group's first
        poner(27, 10, 20);
        const QPoint p = cuadro()->rectCaja(27).center().toPoint();
        QHelpEvent ayuda(QEvent::ToolTip, p, cuadro()->mapToGlobal(p));
        QApplication::sendEvent(cuadro(), &ayuda);
        QTRY_COMPARE(QToolTip::text(), QStringLiteral("1 ") + m_mb->Textos(1307));
    }

    // One press on the model box is one switch, whatever the platform does
    // on the release; a cancelled question switches nothing.
    void compatibilidad_data()
    {
        QTest::addColumn<int>("modelo");
        QTest::addColumn<QList<Answer>>("respuestas"); // asked of a modified label only
        QTest::addColumn<bool>("cambia");
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
        const bool nuevo = (modelo == 1) != cambia;
        QCOMPARE(m_mb->ModeloNuevo, int16_t(nuevo ? 1 : 0));
        QCOMPARE(chk->isChecked(), nuevo);
        QCOMPARE(m_w->editor().superficie.Imagen(26).visible, nuevo);
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
        QTest::newRow("convert") << "Convertir" << QList<Answer>{} << "T";
        QTest::newRow("save asks for a file") << "Guardar" << QList<Answer>{} << "save";
        QTest::newRow("open asks for a file") << "Abrir" << QList<Answer>{} << "open";
        QTest::newRow("new label") << "Nueva" << QList<Answer>{} << "new";
        // The selected box goes to the left limit, the middle of the label
        // or the right limit.
        QTest::newRow("justify left") << "JustIzda" << QList<Answer>{} << "3";
        QTest::newRow("justify centre") << "JustCentr" << QList<Answer>{} << "28.5";
        QTest::newRow("justify right") << "JustDcha" << QList<Answer>{} << "53";
    }

    void toolbar()
    {
        QFETCH(QString, clave);
        QFETCH(QList<Answer>, respuestas);
        QFETCH(QString, efecto);
        const bool justifica = clave.startsWith("Just");
        m_mb->Campos(11).Seleccionado = justifica;
        poner(11, 20, 20);
        m_mb->Modificado = !respuestas.isEmpty();
        m_ui.answers = respuestas;
        // The new label's dialog, answered as it stands on the screen.
        recorrido::AlAbrirse persona([](QWidget& d) {
            QTest::mouseClick(recorrido::hijo<QPushButton>(d, "OKButton"), Qt::LeftButton);
        });
        QAction* a = hijo<QAction>(clave);
        QTest::mouseClick(hijo<QToolBar>("Toolbar1")->widgetForAction(a), Qt::LeftButton);
        QCOMPARE(m_ui.answers.size(), 0);
        if (efecto == "60")
            QCOMPARE(m_mb->AnchoEtiqueta, QByteArray("60"));
        else if (efecto == "T")
            QCOMPARE(m_mb->TipoEtiqueta, QByteArray("T"));
        else if (efecto == "new") // no fields, and the surface shows none
            QCOMPARE(cuadro()->cajaEn(en(21, 21)), -1);
        else if (justifica) {
            const Caja& caja = m_w->editor().superficie.Imagen(11);
            const double x = efecto == "3"    ? caja.left()
                             : efecto == "53" ? caja.left() + caja.width()
                                              : caja.left() + caja.width() / 2;
            QCOMPARE(x, efecto.toDouble());
        } else
            QCOMPARE(m_ui.log.filter(efecto + ": ").size(), 1);
    }

    // The name box takes seven letters as they are typed: an eighth key
    // press changes nothing, so the name never lengthens a frame.
    void nombreSieteLetras()
    {
        QLineEdit* nombre = hijo<QLineEdit>("TxtNomEtiq");
        QTest::keyClicks(nombre, "QUESOSAX");
        QCOMPARE(nombre->text(), QStringLiteral("QUESOSA"));
        QCOMPARE(m_mb->NombreEtiqueta, QByteArray("QUESOSA"));
    }

    // The 45 preset from the tool bar, then a save: the vertical position
    // texts reach the file as the preset lists them, not worked out from
    // the positions (field 18 lower than 17, with the smaller text).
    void preset45Guardado()
    {
        QTest::mouseClick(hijo<QToolBar>("Toolbar1")->widgetForAction(hijo<QAction>("Eti45")),
                          Qt::LeftButton);
        QCOMPARE(pos(18).y(), 42);
        m_ui.savePaths = {m_dir->file("preset.pse")};
        QTest::mouseClick(hijo<QToolBar>("Toolbar1")->widgetForAction(hijo<QAction>("Guardar")),
                          Qt::LeftButton);
        QMap<char, QByteArray> textoVer;
        for (const QByteArray& fila : m_dir->read("preset.pse").split('\n'))
            if (fila.startsWith("99V3") && fila.size() >= 20)
                textoVer[fila.at(13)] = fila.mid(17, 3);
        QCOMPARE(textoVer.value('Q'), QByteArray("130")); // field 17
        QCOMPARE(textoVer.value('R'), QByteArray("108")); // field 18
    }

    // In the old model the total labels stand five blocks after the packing
    // ones: the selector on total label 1 steps to the block of total label
    // 2, named here, not to a neighbour of it.
    void selectorTotalAntiguo()
    {
        abrir(0);
        FileCommands& f = m_w->archivos();
        const int t2 = f.indiceBloque(2 + 5);
        f.Lineas(t2 + 1) = "99T245QUESO  A00000000";
        QTest::mouseClick(hijo<QToolBar>("Toolbar1")->widgetForAction(hijo<QAction>("Convertir")),
                          Qt::LeftButton);
        QCOMPARE(m_mb->TipoEtiqueta + m_mb->NumEtiqueta, QByteArray("T1"));
        QScrollBar* vs = hijo<QScrollBar>("VSEtiq");
        QTest::mouseClick(vs, Qt::LeftButton, {}, QPoint(vs->width() / 2, vs->height() - 4));
        QTRY_COMPARE(m_mb->NumEtiqueta, QByteArray("2"));
        QCOMPARE(m_mb->NombreEtiqueta.trimmed(), QByteArray("QUESO"));
    }
};

QTEST_MAIN(TestSurface)
#include "tst_surface.moc"
