#include "analytic/Analy1c.h"

#include "analytic/DonneesAnalytique.h"
#include "base/Texte.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include "ui_Analy1c.h"

#include <cmath>

namespace ecran {

namespace {

constexpr int ColonnePourcentage = 2, ColonneValeur = 3;

// Pourcentage en centièmes exacts : 33,33 % + 33,33 % + 33,34 % font bien 100 %.
qint64 Centiemes(double pourcentage) {
    return std::llround(pourcentage * 100);
}

QString TextePourcent(qint64 centiemes) {
    return FormatPourcent(static_cast<double>(centiemes) / 10000);
}

// La part d'un montant pour ce pourcentage, au dix-millième.
Montant Part(Montant montant, qint64 centiemes) {
    return Montant::depuisDouble(montant.enDouble() * static_cast<double>(centiemes) / 10000);
}

} // namespace

Analy1c::Analy1c(QWidget* parent, double numEcr, const QString& rappel)
    : ui::EcranModal(parent), ui(std::make_unique<Ui::Analy1c>()), numEcr(numEcr) {
    FixerContexteAide(18);
    ui->setupUi(this);
    ui->Label1->setText(rappel);
    ui->Tree1->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé de la section"),
                              QStringLiteral("Pourcentage"), QStringLiteral("Valeur")});
    const int largeurs[] = {70, 300, 110, 140};
    for (int c = 0; c < 4; ++c) {
        ui->Tree1->FixerLargeurColonne(c, largeurs[c]);
        ui->Tree1->FixerColonneTriable(c, false);
        if (c >= 2) ui->Tree1->FixerAlignementColonne(c, Qt::AlignRight | Qt::AlignVCenter);
    }
    ui->Tree1->FixerValidation([this](int ligne, int, QString& texte) {
        const QString saisi = texte.trimmed().isEmpty() ? QStringLiteral("0") : texte;
        double p = 0;
        if (!LirePourcentage(saisi, p) || p < 0) {
            ui::Boite(QStringLiteral("Votre saisie n'est pas correcte, recommencez"));
            Poser(ligne, 0);
            texte = TextePourcent(0);
            return ui::Grille::Validation::Accepter;
        }
        const qint64 centiemes = Centiemes(p);
        if (!CalculCumulPrc(ligne, centiemes)) {
            ui::Boite(QStringLiteral("Vous êtes en train de dépasser les 100% !"),
                      QStringLiteral("Attention"), ui::Icone::Exclamation);
            Poser(ligne, 0);
            texte = TextePourcent(0);
            return ui::Grille::Validation::Accepter;
        }
        Poser(ligne, centiemes);
        texte = TextePourcent(centiemes);
        return ui::Grille::Validation::Accepter;
    });
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this,
            [this](int ligne) { ui->Tree1->EditerCellule(ligne, ColonnePourcentage); });
    connect(ui->Tree1, &ui::Grille::touche, this, [this](int touche) {
        const int ligne = ui->Tree1->LigneCourante();
        if ((touche == Qt::Key_Return || touche == Qt::Key_Enter) && ligne >= 0)
            ui->Tree1->EditerCellule(ligne, ColonnePourcentage);
    });
    connect(ui->Command3, &QPushButton::clicked, this, &Analy1c::Command3_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &Analy1c::Command5_Click);
    MajTree1();
}

Analy1c::~Analy1c() = default;

void Analy1c::MajTree1() {
    const QString cle = CleCourante();
    table::Ecriture e;
    LireEcriture(cle, numEcr, e);
    montant = e.MntEcr;
    table::Ventilation v;
    const bool ventilee = LireVentilation(cle, numEcr, v);
    reste = ventilee ? 0 : 10000;
    ui->LRestePourc->setText(TextePourcent(reste));
    ui->LRestVal->setText(AfficheMontant(ventilee ? Montant() : montant));
    ui->Tree1->Vider();
    for (const analytique::Section& s : analytique::Sections(cle, false)) {
        if (s.numero >= 99) break;
        QString pourcentage, valeur;
        const Montant part = v.Ventil[static_cast<std::size_t>(s.numero)];
        if (ventilee && !part.estNul()) {
            valeur = AfficheMontant(part);
            if (!montant.estNul())
                pourcentage = FormatPourcent(part.enDouble() / montant.enDouble());
        }
        ui->Tree1->AjouterLigne({QStringLiteral("%1").arg(s.numero, 2, 10, QLatin1Char('0')), s.nom,
                                 pourcentage, valeur},
                                s.numero);
    }
    ui->Command5->setEnabled(false);
}

bool Analy1c::CalculCumulPrc(int ligne, qint64 centiemes) {
    qint64 somme = 0;
    for (int i = 0; i < ui->Tree1->NombreLignes(); ++i) {
        double p = 0;
        if (i == ligne)
            somme += centiemes;
        else if (LirePourcentage(ui->Tree1->Texte(i, ColonnePourcentage), p))
            somme += Centiemes(p);
    }
    reste = 10000 - somme;
    ui->LRestePourc->setText(TextePourcent(reste));
    return somme <= 10000;
}

void Analy1c::Poser(int ligne, qint64 centiemes) {
    CalculCumulPrc(ligne, centiemes);
    ui->Tree1->FixerTexte(ligne, ColonneValeur,
                          centiemes == 0 ? QString() : AfficheMontant(Part(montant, centiemes)));
    ui->LRestVal->setText(AfficheMontant(Part(montant, reste)));
    ui->Command5->setEnabled(reste == 0);
}

void Analy1c::Command3_Click() {
    Retour();
}

void Analy1c::Command5_Click() {
    if (reste != 0) return;
    std::array<Montant, 99> parts{};
    for (int i = 0; i < ui->Tree1->NombreLignes(); ++i) {
        const int section = ui->Tree1->DonneeLigne(i).toInt();
        if (section < 1 || section > 98) continue;
        const QString valeur = ui->Tree1->Texte(i, ColonneValeur);
        parts[static_cast<std::size_t>(section)] =
            valeur.trimmed().isEmpty() ? Montant() : MontantDepuisTexte(valeur);
    }
    analytique::EnregistrerVentilation(CleCourante(), numEcr, parts);
    Retour();
}

} // namespace ecran
