#include "entry/Annul.h"

#include "base/Montant.h"
#include "base/Texte.h"
#include "consultation/DonneesJournal.h"
#include "entry/AffJournal.h"
#include "entry/DonneesSaisie.h"
#include "posting/PasserEcriture.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui_Annul.h"

#include <QApplication>

namespace ecran {

namespace {

// La ligne contre-passée : mêmes compte, journal et sections, montant et sens inversés.
table::Saisie LigneInverse(const table::Ecriture& e, const table::Compte& c, std::int32_t numero,
                           const QString& libelle) {
    table::Saisie s;
    s.wNumEcrt = numero;
    s.wDateEcr = DateVersBase(session().DateSaisieCourante);
    s.wNumCpt = e.NumCptEcr;
    s.wErEcr = e.ErEcr;
    s.wBilan = c.Bilan;
    s.wMenu = c.Menu;
    s.wDatePiece = e.DatePiece;
    s.wLibEcr = libelle;
    s.wDateEcheance = e.DateEcheance;
    s.wMntEcr = -e.MntEcr;
    s.wDCEcr = e.DCEcr.trimmed() == QLatin1String("D") ? QStringLiteral("C") : QStringLiteral("D");
    s.wFin = e.Fin;
    s.wMoisEcheance = e.MoisEcheance;
    s.wSectionEcr = e.SectionEcr;
    s.wVentilEcr = e.VentilEcr ? 1 : 0;
    s.wJournal = e.Journal;
    return s;
}

} // namespace

Annul::Annul(QWidget* parent) : EcranJournal(parent), ui(std::make_unique<Ui::Annul>()) {
    ui->setupUi(this);
    Brancher(ui->Tree1, ui->Tree2, ui->Gauge1);
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, &Annul::Tree1_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &Annul::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &Annul::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Annul::Command3_Click);
    ui->Command2->hide();
    ui->Label2->hide();
}

Annul::~Annul() = default;

void Annul::Form_Activate() {
    FiltreJournal = QStringLiteral("*");
    ui->Command2->hide();
    ui->Label2->hide();
    AffJournal(FiltreJournal);
}

void Annul::Tree1_Click(int ligne) {
    ui->Command2->hide();
    ui->Label2->hide();
    ChoisirGroupe(ligne);
}

void Annul::Command3_Click() {
    if (ui->Tree2->NombreLignes() == 0) {
        ui::Boite(QStringLiteral("Sélectionnez d'abord un groupe d'écritures"),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        return;
    }
    saisie::Vider();
    const QString cle = CleCourante();
    table::Constante k;
    LireConstante(cle, k);
    NumProchain = static_cast<std::int32_t>(k.LastNumEcrit);
    const QString libelle =
        QStringLiteral("Annul écritures %1 à %2").arg(NumDebutGroupe).arg(NumFinGroupe);
    for (std::int32_t i = NumDebutGroupe; i <= NumFinGroupe; ++i) {
        table::Ecriture e;
        if (!LireEcriture(cle, i, e)) continue;
        table::Compte c;
        LireCompte(cle, e.NumCptEcr.trimmed(), c);
        ++NumProchain;
        table::Saisie s = LigneInverse(e, c, NumProchain, libelle);
        saisie::AjouterLigne(s);
    }
    NumProchain = static_cast<std::int32_t>(k.LastNumEcrit) + 1;

    // Ce qui sera passé, lu dans wSaisie : le montant dans la colonne de son sens réel.
    ui->Tree2->Vider();
    for (const saisie::Ligne& w : saisie::LireLignes()) {
        journal::Ligne l;
        l.numero = w.s.wNumEcrt;
        l.dateEcr = w.s.wDateEcr.trimmed();
        l.datePiece = w.s.wDatePiece.trimmed();
        l.libelle = w.s.wLibEcr.trimmed();
        l.compte = w.s.wNumCpt.trimmed();
        l.journal = w.s.wJournal.trimmed();
        const bool positif = w.s.wMntEcr > Montant();
        l.debit = w.s.wErEcr.trimmed().startsWith(u'E') ? positif : !positif;
        ui->Tree2->AjouterLigne(
            journal::Textes(l, FormaterMontant(w.s.wMntEcr.abs(), session().FormatMontant)),
            static_cast<std::int32_t>(w.s.wNumEcrt));
    }
    ui->Label2->show();
    ui->Command2->show();
}

void Annul::Command2_Click() {
    setCursor(Qt::WaitCursor);
    PasserEcriture(QString::number(NumProchain), session().MonnaieExercice);
    saisie::Vider();
    unsetCursor();
    ui->Command2->hide();
    ui->Label2->hide();
    Form_Activate();
}

void Annul::Command1_Click() {
    saisie::Vider();
    Retour();
    QApplication::processEvents();
}

} // namespace ecran
