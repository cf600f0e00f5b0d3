#include "consultation/BilGraph.h"

#include "consultation/DonneesComptes.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui_BilGraph.h"

#include <QProgressBar>

namespace ecran {

namespace {

double Valeur(Montant m) {
    return static_cast<double>(m.dixMilliemes()) / 10000.0;
}

} // namespace

BilGraph::BilGraph(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::BilGraph>()) {
    ui->setupUi(this);
    FixerContexteAide(PageInitiation);
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    const QList<QPair<QProgressBar*, const char*>> couleurs = {
        {ui->GBIENS, "#3b7dd8"}, {ui->GDAR, "#5fa8e8"},  {ui->GMD, "#8fd0f0"},
        {ui->GRN, "#d84b3b"},    {ui->GSN, "#4caf50"},   {ui->GDAP, "#f0a030"},
        {ui->GRP, "#2e7d32"},    {ui->GCONS, "#f0a030"}, {ui->GACTI, "#4caf50"},
        {ui->GRNCR, "#d84b3b"},  {ui->GRPCR, "#2e7d32"}};
    for (const auto& [jauge, couleur] : couleurs) {
        jauge->setRange(0, 1);
        jauge->setValue(1);
        jauge->setAlignment(Qt::AlignCenter);
        jauge->setStyleSheet(QStringLiteral("QProgressBar { border: 1px solid #404040; color: "
                                            "black; } QProgressBar::chunk { background: %1; }")
                                 .arg(QLatin1String(couleur)));
    }
    connect(ui->Option1, &QRadioButton::clicked, this, &BilGraph::Option1_Click);
    connect(ui->Option2, &QRadioButton::clicked, this, &BilGraph::Option2_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &BilGraph::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &BilGraph::Command2_Click);
    BilanGraphique();
}

BilGraph::~BilGraph() = default;

void BilGraph::Refuser(const QString& premiere, const QString& raison) {
    ui->Label29->setText(premiere);
    ui->Label30->setText(raison);
    ui->Frame1->hide();
    ui->Frame3->hide();
}

void BilGraph::Empiler(const QList<Tranche>& pile, double total) {
    double haut = HautPile;
    for (const Tranche& p : pile) {
        if (p.jauge->isHidden()) continue;
        const double hauteur = Valeur(p.montant) * (HauteurPile / total);
        p.jauge->setProperty("Haut", haut);
        p.jauge->setProperty("Hauteur", hauteur);
        const int pixels = std::max(1, qRound(hauteur * Echelle));
        p.jauge->setGeometry(p.jauge->x(), qRound(haut * Echelle), p.jauge->width(), pixels);
        // Une tranche trop mince pour son nom le tairait à moitié : le montant à côté suffit.
        p.jauge->setTextVisible(pixels >= p.jauge->fontMetrics().height() + 2);
        if (p.etiquette) {
            const double hautEtiquette = haut + hauteur / 2;
            p.etiquette->setProperty("Haut", hautEtiquette);
            // L'étiquette se place à droite de sa jauge, de quelque côté que soit la jauge.
            p.etiquette->move(p.jauge->x() + p.jauge->width() + 10,
                              qRound(hautEtiquette * Echelle) - p.etiquette->height() / 2);
        }
        haut += hauteur;
    }
}

void BilGraph::BilanGraphique() {
    setWindowTitle(QStringLiteral("Bilan Graphique"));
    ui->Frame1->show();
    ui->Frame3->hide();
    ui->Label29->clear();
    ui->Label30->clear();
    table::Constante k;
    LireConstante(CleCourante(), k);
    const QString refus = QStringLiteral("Le bilan graphique ne peut être affiché.");
    if (k.E1 == Montant() && k.R1 == Montant())
        return Refuser(refus, QStringLiteral("Raison : Votre bilan n'est pas encore créé."));
    if (k.SDE1 != k.SDR1)
        return Refuser(refus, QStringLiteral("Raison : Le bilan d'ouverture n'est pas équilibré."));
    if (k.SN < Montant())
        return Refuser(refus, QStringLiteral("Raison : Votre Situation Nette est négative (") +
                                  AfficheMontant(k.SN) + QStringLiteral(")."));
    // Un découvert est une dette ; des dettes négatives sont des créances, et inversement.
    Montant md = k.MD, dap = k.DAP, dar = k.DAR;
    if (md < Montant()) {
        dap += md.abs();
        md = Montant();
    }
    if (dap < Montant()) {
        dar += dap.abs();
        dap = Montant();
    }
    if (dar < Montant()) {
        dap += dar.abs();
        dar = Montant();
    }
    const Montant resultat = k.Resultat;
    double total = Valeur(k.BIENS) + Valeur(dar) + Valeur(md);
    QString libelle = QStringLiteral("Résultat Positif");
    if (resultat < Montant()) {
        total += Valeur(resultat.abs());
        libelle = QStringLiteral("Résultat Négatif");
    }
    if (resultat == Montant() && k.R1 == k.E1) {
        libelle = QStringLiteral("Résultat");
        ui->Label31->setText(QStringLiteral("Votre résultat a été affecté à la situation nette"));
    } else {
        ui->Label31->setText(QStringLiteral(
            "L'exercice n'est pas terminé. Les écritures d'inventaires sont-elles passées ?"));
    }
    ui->LBIENS->setText(AfficheMontant(k.BIENS));
    ui->LDAR->setText(AfficheMontant(dar));
    ui->LMD->setText(AfficheMontant(md));
    ui->LSN->setText(AfficheMontant(k.SN));
    ui->LDAP->setText(AfficheMontant(dap));
    ui->LRES->setText(libelle + QStringLiteral(" : ") + AfficheMontant(resultat.abs()));
    ui->GRN->setFormat(libelle);
    ui->GRP->setFormat(libelle);
    ui->GRN->setVisible(resultat < Montant());
    ui->GRP->setVisible(resultat > Montant());
    Empiler({{ui->GBIENS, k.BIENS, ui->LBIENS},
             {ui->GDAR, dar, ui->LDAR},
             {ui->GMD, md, ui->LMD},
             {ui->GRN, resultat.abs(), ui->LRES}},
            total);
    Empiler({{ui->GSN, k.SN, ui->LSN},
             {ui->GDAP, dap, ui->LDAP},
             {ui->GRP, resultat.abs(), resultat > Montant() ? ui->LRES : nullptr}},
            total);
}

void BilGraph::CalcResultat(Montant& Charges, Montant& Produits) {
    Charges = comptes::SommeSoldes(comptes::Rubrique::Charges);
    Produits = comptes::SommeSoldes(comptes::Rubrique::Produits);
}

void BilGraph::CptResulGraphique() {
    ui->Frame3->show();
    ui->Frame1->hide();
    setWindowTitle(QStringLiteral("Compte de Résultat Graphique"));
    ui->Label29->clear();
    ui->Label30->clear();
    ui->Label31->clear();
    Montant charges, produits;
    CalcResultat(charges, produits);
    const Montant resultat = produits - charges;
    if (charges == Montant() && produits == Montant())
        return Refuser(QStringLiteral("Le compte de résultat ne peut être affiché."),
                       QStringLiteral("Raison : Vous n'avez pas encore passé d'écritures."));
    double total;
    QString libelle;
    if (resultat >= Montant()) {
        total = Valeur(charges) + Valeur(resultat);
        libelle = QStringLiteral("Résultat Positif");
    } else {
        total = Valeur(produits) + Valeur(resultat.abs());
        libelle = QStringLiteral("Résultat Négatif");
    }
    ui->GRPCR->setVisible(resultat >= Montant());
    ui->GRNCR->setVisible(resultat < Montant());
    ui->GRPCR->setFormat(libelle);
    ui->GRNCR->setFormat(libelle);
    ui->LCONS->setText(AfficheMontant(charges));
    ui->LACTI->setText(AfficheMontant(produits));
    ui->LRESCR->setText(libelle + QStringLiteral(" : ") + AfficheMontant(resultat.abs()));
    Empiler({{ui->GCONS, charges, ui->LCONS},
             {ui->GRPCR, resultat.abs(), resultat >= Montant() ? ui->LRESCR : nullptr}},
            total);
    Empiler({{ui->GACTI, produits, ui->LACTI},
             {ui->GRNCR, resultat.abs(), resultat < Montant() ? ui->LRESCR : nullptr}},
            total);
}

void BilGraph::Option1_Click() {
    BilanGraphique();
}

void BilGraph::Option2_Click() {
    CptResulGraphique();
}

void BilGraph::Command1_Click() {
    Retour();
}

void BilGraph::Command2_Click() {
    ui::AfficherAide(PageInitiation);
}

} // namespace ecran
