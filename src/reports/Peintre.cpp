#include "reports/Peintre.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

namespace rapport {

namespace {

double Utile(const Gabarit& g) {
    return g.hauteur - 2 * g.marge - g.entete - g.titres - g.pied;
}

// Le pinceau d'une page : millimètres vers points de l'appareil, polices de l'état.
struct Pinceau {
    QPainter& p;
    double u; // points par millimètre
    const Gabarit& g;
    QFont normale, grasse, titre;

    Pinceau(QPainter& peintre, double pointsParMm, const Gabarit& gabarit)
        : p(peintre), u(pointsParMm), g(gabarit) {
        normale = QFont(QStringLiteral("DejaVu Sans"));
        normale.setPointSizeF(7.5);
        grasse = normale;
        grasse.setBold(true);
        titre = normale;
        titre.setPointSizeF(12);
        titre.setBold(true);
    }
    QRectF R(double x, double y, double l, double h) const { return {x * u, y * u, l * u, h * u}; }
    void Texte(const QRectF& r, const QString& t, Alignement a, bool couper = false) {
        int drapeaux = Qt::AlignVCenter | Qt::TextSingleLine;
        drapeaux |= a == Alignement::Droite   ? Qt::AlignRight
                    : a == Alignement::Centre ? Qt::AlignHCenter
                                              : Qt::AlignLeft;
        if (!couper) {
            p.drawText(r, drapeaux, t);
            return;
        }
        // Un libellé trop long est coupé avec des points de suspension, jamais débordant.
        const QFontMetricsF m(p.font(), p.device());
        p.drawText(r, drapeaux,
                   m.horizontalAdvance(t) > r.width() ? m.elidedText(t, Qt::ElideRight, r.width())
                                                      : t);
    }
    void Filet(double y, double epaisseur = 0.2) {
        p.save();
        p.setPen(QPen(Qt::black, epaisseur * u));
        p.drawLine(QPointF(g.marge * u, y * u), QPointF((g.largeur - g.marge) * u, y * u));
        p.restore();
    }
};

// Abscisses des colonnes (mm), de la marge gauche à la marge droite.
std::vector<double> Abscisses(const Document& d, const Gabarit& g) {
    double total = 0;
    for (const Colonne& c : d.colonnes)
        total += std::max(0.0, c.part);
    std::vector<double> x{g.marge};
    const double utile = g.largeur - 2 * g.marge;
    for (const Colonne& c : d.colonnes)
        x.push_back(x.back() + (total > 0 ? utile * std::max(0.0, c.part) / total : 0));
    return x;
}

void LigneDeCellules(Pinceau& pi, const Document& d, const std::vector<double>& x, double y,
                     const QStringList& cellules) {
    const double jeu = 0.8; // espace entre deux colonnes
    for (int i = 0; i < d.colonnes.size() && i < cellules.size(); ++i) {
        if (cellules[i].isEmpty()) continue;
        const Colonne& c = d.colonnes[i];
        pi.Texte(pi.R(x[i] + jeu, y, x[i + 1] - x[i] - 2 * jeu, pi.g.ligne), cellules[i],
                 c.alignement, c.alignement == Alignement::Gauche);
    }
}

// Ligne « Report » ou « A reporter » : le libellé sur toute la largeur qui précède la
// première colonne reportée, les cumuls dans les colonnes reportées.
void LigneReport(Pinceau& pi, const Document& d, const std::vector<double>& x, double y,
                 const QString& libelle, const QList<Montant>& cumuls) {
    QStringList cellules;
    int r = 0, premiere = -1;
    for (int i = 0; i < d.colonnes.size(); ++i) {
        if (d.colonnes[i].reportee) {
            if (premiere < 0) premiere = i;
            cellules << TexteMontant(r < cumuls.size() ? cumuls[r] : Montant());
            ++r;
        } else {
            cellules << QString();
        }
    }
    const double fin = premiere >= 0 ? x[premiere] : x.back();
    pi.Texte(pi.R(x.front() + 0.8, y, fin - x.front() - 1.6, pi.g.ligne), libelle,
             Alignement::Gauche, true);
    LigneDeCellules(pi, d, x, y, cellules);
}

} // namespace

std::vector<Page> MettreEnPages(const Document& d, const Gabarit& g) {
    std::vector<Page> pages;
    const bool reports = d.ADesReports();
    const double utile = Utile(g);
    std::size_t i = 0;
    do {
        Page p;
        p.debut = i;
        p.reportEnHaut = reports && !pages.empty();
        double place = utile - (p.reportEnHaut ? g.ligne : 0);
        // Une ligne de réserve au bas pour « A reporter » si la page n'est pas la dernière.
        const std::size_t tient = static_cast<std::size_t>(std::max(1.0, place / g.ligne));
        std::size_t fin = std::min(d.lignes.size(), i + tient);
        if (reports && fin < d.lignes.size()) {
            fin = std::max(i + 1, fin - 1);
            p.aReporterEnBas = true;
        }
        p.fin = fin;
        pages.push_back(p);
        i = fin;
    } while (i < d.lignes.size());
    return pages;
}

int Peindre(const Document& d, QPagedPaintDevice& appareil, const QString& dateEdition,
            const Avancement& avancement, const Gabarit& g, int* prevues) {
    // Sur une imprimante, les coordonnées partent du bord de la feuille, pas de la zone
    // imprimable : nos marges de 12 mm sont alors les mêmes qu'en PDF.
    if (auto* imprimante = dynamic_cast<QPrinter*>(&appareil)) imprimante->setFullPage(true);
    appareil.setPageSize(QPageSize(QPageSize::A4));
    appareil.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    const std::vector<Page> pages = MettreEnPages(d, g);
    if (prevues) *prevues = static_cast<int>(pages.size());
    QPainter peintre;
    if (!peintre.begin(&appareil)) return 0;
    Pinceau pi(peintre, appareil.logicalDpiY() / 25.4, g);
    const std::vector<double> x = Abscisses(d, g);
    const int total = static_cast<int>(pages.size());
    int nbReportees = 0;
    for (const Colonne& c : d.colonnes)
        nbReportees += c.reportee ? 1 : 0;
    QList<Montant> cumuls(nbReportees);
    const double droite = g.largeur - g.marge, large = g.largeur - 2 * g.marge;

    int faites = 0;
    for (const Page& page : pages) {
        if (faites > 0 && !appareil.newPage()) break;
        double y = g.marge;
        // En-tête : société et date d'édition ; le titre sur toute la largeur (un titre de
        // journal avec son mois est long) ; période et date de saisie.
        peintre.setFont(pi.grasse);
        pi.Texte(pi.R(g.marge, y, large * 0.6, 5), d.societe, Alignement::Gauche, true);
        peintre.setFont(pi.normale);
        pi.Texte(pi.R(droite - large * 0.4, y, large * 0.4, 5),
                 QStringLiteral("Edité le ") + dateEdition, Alignement::Droite);
        peintre.setFont(pi.titre);
        pi.Texte(pi.R(g.marge, y + 5, large, 8), d.titre, Alignement::Centre, true);
        peintre.setFont(pi.normale);
        pi.Texte(pi.R(g.marge, y + 13, large / 2, 5), d.Periode(), Alignement::Gauche);
        if (!d.dateSaisie.isEmpty())
            pi.Texte(pi.R(droite - large / 2, y + 13, large / 2, 5),
                     QStringLiteral("Date de saisie : ") + d.dateSaisie, Alignement::Droite);
        y += g.entete;
        // Titres des colonnes, sur chaque page.
        peintre.setFont(pi.grasse);
        QStringList titres;
        for (const Colonne& c : d.colonnes)
            titres << c.titre;
        LigneDeCellules(pi, d, x, y, titres);
        y += g.titres;
        pi.Filet(y - 0.8);
        peintre.setFont(pi.normale);
        if (page.reportEnHaut) {
            peintre.setFont(pi.grasse);
            LigneReport(pi, d, x, y, QStringLiteral("Report"), cumuls);
            peintre.setFont(pi.normale);
            y += g.ligne;
        }
        for (std::size_t i = page.debut; i < page.fin; ++i) {
            const Ligne& l = d.lignes[i];
            const bool gras = l.genre != Genre::Detail && l.genre != Genre::Blanc;
            if (l.genre == Genre::TotalGroupe) pi.Filet(y + 0.3, 0.15);
            if (l.genre == Genre::TotalGeneral) {
                pi.Filet(y + 0.3);
                pi.Filet(y + 0.8);
            }
            if (gras) peintre.setFont(pi.grasse);
            LigneDeCellules(pi, d, x, y + (l.genre == Genre::TotalGeneral ? 0.4 : 0), l.cellules);
            if (gras) peintre.setFont(pi.normale);
            for (int r = 0; r < l.reportes.size() && r < cumuls.size(); ++r)
                cumuls[r] += l.reportes[r];
            y += g.ligne;
        }
        if (page.aReporterEnBas) {
            peintre.setFont(pi.grasse);
            pi.Filet(y + 0.3, 0.15);
            LigneReport(pi, d, x, y, QStringLiteral("A reporter"), cumuls);
            peintre.setFont(pi.normale);
        }
        // Pied : version à gauche, page à droite.
        const double bas = g.hauteur - g.marge - g.pied;
        pi.Filet(bas + 1, 0.15);
        pi.Texte(pi.R(g.marge, bas + 1.5, large / 2, 5), d.version, Alignement::Gauche);
        pi.Texte(pi.R(droite - large / 2, bas + 1.5, large / 2, 5),
                 QStringLiteral("Page %1 / %2").arg(faites + 1).arg(total), Alignement::Droite);
        ++faites;
        if (avancement && !avancement(faites, total)) break;
    }
    peintre.end();
    return faites;
}

QString EcrirePdf(const Document& d, const QString& chemin, const QString& dateEdition, int* pages,
                  const Avancement& avancement) {
    QSaveFile fichier(chemin);
    if (!fichier.open(QIODevice::WriteOnly))
        return QStringLiteral("Le fichier « %1 » ne peut pas être écrit : %2")
            .arg(chemin, fichier.errorString());
    int faites = 0, total = 0;
    {
        QPdfWriter pdf(&fichier);
        pdf.setResolution(300);
        pdf.setTitle(d.titre);
        pdf.setCreator(d.version);
        faites = Peindre(d, pdf, dateEdition, avancement, Gabarit(), &total);
    }
    if (pages) *pages = faites;
    if (faites < total) {
        fichier.cancelWriting();
        return QStringLiteral("L'impression est annulée.");
    }
    if (!fichier.commit())
        return QStringLiteral("Le fichier « %1 » ne peut pas être écrit : %2")
            .arg(chemin, fichier.errorString());
    return QString();
}

} // namespace rapport
