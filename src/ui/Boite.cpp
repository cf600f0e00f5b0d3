#include "ui/Boite.h"

#include "ui/Dialogues.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace ui {

namespace {

QList<EntreeJournal> journal;
QList<Reponse> reponses;

struct Bouton {
    Reponse reponse;
    QMessageBox::StandardButton standard;
};

QList<Bouton> BoutonsDe(Boutons boutons) {
    switch (boutons) {
    case Boutons::OK:
        return {{Reponse::OK, QMessageBox::Ok}};
    case Boutons::OKAnnuler:
        return {{Reponse::OK, QMessageBox::Ok}, {Reponse::Annuler, QMessageBox::Cancel}};
    case Boutons::OuiNon:
        return {{Reponse::Oui, QMessageBox::Yes}, {Reponse::Non, QMessageBox::No}};
    case Boutons::OuiNonAnnuler:
        return {{Reponse::Oui, QMessageBox::Yes},
                {Reponse::Non, QMessageBox::No},
                {Reponse::Annuler, QMessageBox::Cancel}};
    case Boutons::RecommencerAnnuler:
        return {{Reponse::Recommencer, QMessageBox::Retry},
                {Reponse::Annuler, QMessageBox::Cancel}};
    }
    return {{Reponse::OK, QMessageBox::Ok}};
}

// Echap (ou une fermeture de la fenêtre) vaut : Non pour Oui/Non, Annuler quand il existe,
// OK pour la boîte d'information.
Reponse ReponseEchap(Boutons boutons) {
    switch (boutons) {
    case Boutons::OK:
        return Reponse::OK;
    case Boutons::OuiNon:
        return Reponse::Non;
    default:
        return Reponse::Annuler;
    }
}

QMessageBox::Icon IconeQt(Icone icone) {
    switch (icone) {
    case Icone::Information:
        return QMessageBox::Information;
    case Icone::Question:
        return QMessageBox::Question;
    case Icone::Exclamation:
        return QMessageBox::Warning;
    case Icone::Critique:
        return QMessageBox::Critical;
    case Icone::Aucune:
        break;
    }
    return QMessageBox::NoIcon;
}

Reponse MontrerBoite(const QString& texte, const QString& titre, Icone icone, Boutons boutons,
                     int boutonParDefaut) {
    QMessageBox boite(IconeQt(icone), titre, texte);
    boite.setObjectName(QStringLiteral("Boite"));
    boite.setTextFormat(Qt::PlainText);
    const QList<Bouton> liste = BoutonsDe(boutons);
    QAbstractButton* echap = nullptr;
    for (int i = 0; i < liste.size(); ++i) {
        QPushButton* b = boite.addButton(liste[i].standard);
        b->setText(LibelleReponse(liste[i].reponse));
        b->setObjectName(LibelleReponse(liste[i].reponse));
        if (i + 1 == boutonParDefaut) boite.setDefaultButton(b);
        if (liste[i].reponse == ReponseEchap(boutons)) echap = b;
    }
    boite.setEscapeButton(echap);
    LimiterEnEssai(boite);
    boite.exec();
    QAbstractButton* clique = boite.clickedButton();
    for (const Bouton& b : liste)
        if (clique && clique == boite.button(b.standard)) return b.reponse;
    return ReponseEchap(boutons);
}

} // namespace

QString LibelleReponse(Reponse reponse) {
    switch (reponse) {
    case Reponse::OK:
        return QStringLiteral("OK");
    case Reponse::Annuler:
        return QStringLiteral("Annuler");
    case Reponse::Oui:
        return QStringLiteral("Oui");
    case Reponse::Non:
        return QStringLiteral("Non");
    case Reponse::Recommencer:
        return QStringLiteral("Recommencer");
    }
    return QString();
}

bool ReponsePossible(Boutons boutons, Reponse reponse) {
    for (const Bouton& b : BoutonsDe(boutons))
        if (b.reponse == reponse) return true;
    return false;
}

Reponse Boite(const QString& texte, const QString& titre, Icone icone, Boutons boutons,
              int boutonParDefaut) {
    Reponse reponse;
    if (!reponses.isEmpty()) {
        reponse = reponses.takeFirst();
        // Une réponse prévue qui n'est pas un bouton de la boîte est une erreur du test.
        if (!ReponsePossible(boutons, reponse))
            qFatal("Boite : la réponse prévue « %s » n'est pas un bouton de la boîte « %s » (%s)",
                   qPrintable(LibelleReponse(reponse)), qPrintable(titre), qPrintable(texte));
    } else if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        // Sans interface (outil en ligne de commande, test sans fenêtres) : le message va
        // sur la sortie d'erreur et la boîte vaut comme fermée.
        qWarning("%s : %s", qPrintable(titre), qPrintable(texte));
        reponse = ReponseEchap(boutons);
    } else {
        reponse = MontrerBoite(texte, titre, icone, boutons, boutonParDefaut);
    }
    journal.append({titre, texte, icone, reponse, boutons, boutonParDefaut});
    return reponse;
}

void RepondreBoite(Reponse reponse) {
    reponses.append(reponse);
}

int ReponsesEnAttente() {
    return reponses.size();
}

const QList<EntreeJournal>& JournalBoites() {
    return journal;
}

void ViderJournalBoites() {
    journal.clear();
}

void OublierReponsesBoite() {
    reponses.clear();
}

} // namespace ui
