#include "ui/EcranModal.h"

#include "ui/Aide.h"

#include <QApplication>
#include <QEventLoop>
#include <QHideEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>

namespace ui {

namespace {
QList<EcranModal*> pile;
}

EcranModal::EcranModal(QWidget* parent) : QDialog(parent) {
    // F1 ouvre l'aide de l'écran, où que soit le focus.
    auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
    f1->setContext(Qt::WindowShortcut);
    connect(f1, &QShortcut::activated, this, &EcranModal::MontrerAide);
}

void EcranModal::MontrerAide() {
    for (QWidget* w = this; w; w = w->parentWidget())
        if (const auto* e = qobject_cast<EcranModal*>(w); e && e->contexteAide > 0) {
            AfficherAide(e->contexteAide);
            return;
        }
    AfficherAideIndex();
}

EcranModal::~EcranModal() {
    pile.removeAll(this);
}

int EcranModal::exec() {
    if (boucle) {
        qWarning("EcranModal::exec : écran %s déjà chargé", qPrintable(objectName()));
        return -1;
    }
    const bool detruireALaFermeture = testAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_DeleteOnClose, false);
    const bool etaitModal = testAttribute(Qt::WA_ShowModal);
    setAttribute(Qt::WA_ShowModal, true);
    setResult(0);
    fini = false;
    quitte = false;
    masqueParPile = false;

    QPointer<EcranModal> dessous = pile.isEmpty() ? nullptr : pile.last();
    pile.append(this);
    QPointer<EcranModal> garde(this);
    QEventLoop boucleLocale;
    boucle = &boucleLocale;
    RetirerBoutonsParDefautImplicites();
    show();
    // Sa propre boucle, et non celle de QDialog : cacher l'écran du dessous ne doit pas
    // terminer son exec().
    if (garde && !fini && dessous && masquerDessous && dessous->isVisible()) dessous->Masquer();
    if (garde && !fini) boucleLocale.exec(QEventLoop::DialogExec);
    if (!garde) return QDialog::Rejected;
    boucle = nullptr;
    pile.removeAll(this);
    setAttribute(Qt::WA_ShowModal, etaitModal);
    const int resultat = result();
    if (dessous && dessous->masqueParPile && !dessous->quitte && !dessous->fini) {
        // Les événements en attente passent avant que l'écran du dessous revienne.
        QCoreApplication::processEvents();
        if (dessous && dessous->masqueParPile && !dessous->quitte && !dessous->fini)
            dessous->Remontrer();
    }
    if (detruireALaFermeture) delete this;
    return resultat;
}

void EcranModal::done(int resultat) {
    fini = true;
    masqueParPile = false;
    QPointer<EcranModal> garde(this);
    QDialog::done(resultat);
    if (garde && boucle) boucle->exit();
}

void EcranModal::hideEvent(QHideEvent* evenement) {
    QDialog::hideEvent(evenement);
    // Caché par un autre que la pile : comme QDialog, la boucle modale se termine.
    if (boucle && !masqueParPile && !evenement->spontaneous()) {
        fini = true;
        boucle->exit();
    }
}

void EcranModal::keyPressEvent(QKeyEvent* evenement) {
    if (evenement->key() == Qt::Key_Escape && !echapFerme) {
        evenement->accept();
        return;
    }
    QDialog::keyPressEvent(evenement);
}

void EcranModal::RetirerBoutonsParDefautImplicites() {
    // Sans cela, Entrée dans un champ actionnerait le premier bouton de l'écran.
    for (QPushButton* bouton : findChildren<QPushButton*>())
        if (!bouton->isDefault()) bouton->setAutoDefault(false);
}

void EcranModal::Masquer() {
    masqueParPile = true;
    hide();
}

void EcranModal::Remontrer() {
    masqueParPile = false;
    show();
    raise();
    activateWindow();
}

void EcranModal::Retour() {
    done(CodeRetour);
}

void EcranModal::Quitter() {
    const int rang = pile.indexOf(this);
    int niveaux = 1;
    for (int i = rang; i >= 0; --i) {
        if (pile[i]->debutChaine) {
            niveaux = rang - i + 1;
            break;
        }
    }
    QuitterNiveaux(niveaux);
}

void EcranModal::QuitterNiveaux(int niveaux) {
    const int rang = pile.indexOf(this);
    if (rang < 0) {
        quitte = true;
        done(CodeQuitter);
        return;
    }
    // Les écrans au-dessus de celui-ci partent aussi, en premier.
    QList<EcranModal*> ecrans;
    for (int i = pile.size() - 1; i >= 0 && i > rang - qMax(1, niveaux); --i)
        ecrans.append(pile[i]);
    Decharger(ecrans);
}

void EcranModal::Decharger(const QList<EcranModal*>& ecrans) {
    QList<QPointer<EcranModal>> gardes;
    for (EcranModal* e : ecrans) {
        e->quitte = true;
        gardes.append(e);
    }
    for (int i = 0; i < gardes.size(); ++i) {
        if (i > 0) QCoreApplication::processEvents();
        if (gardes[i]) gardes[i]->done(CodeQuitter);
    }
}

QList<EcranModal*> PileModale::Ecrans() {
    return pile;
}

EcranModal* PileModale::Sommet() {
    return pile.isEmpty() ? nullptr : pile.last();
}

void PileModale::FermerTout() {
    // D'abord les fenêtres modales visibles, la plus haute d'abord (boîtes, dialogues).
    for (int garde = 0; garde < 100; ++garde) {
        QWidget* haut = QApplication::activeModalWidget();
        if (!haut) break;
        if (auto* ecran = qobject_cast<EcranModal*>(haut)) ecran->quitte = true;
        if (auto* dialogue = qobject_cast<QDialog*>(haut))
            dialogue->reject();
        else
            haut->close();
        if (haut->isVisible()) haut->hide();
        if (QApplication::activeModalWidget() == haut) break;
    }
    // Puis les écrans de la pile que l'écran du dessus avait cachés.
    QList<QPointer<EcranModal>> gardes;
    for (int i = pile.size() - 1; i >= 0; --i)
        gardes.append(pile[i]);
    for (auto& e : gardes) {
        if (!e || e->fini) continue;
        e->quitte = true;
        e->done(QDialog::Rejected);
    }
}

} // namespace ui
