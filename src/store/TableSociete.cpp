#include "store/Acces.h"
#include "store/Routines.h"

bool LireSociete(int numSoc, table::Societe& r) {
    return acces::LireLigne("Societe", "NumSoc=?", r, numSoc);
}

int AjouterSociete(table::Societe& r) {
    // Le numéro est donné par la base (compteur) puis relu.
    auto& q = Requete("INSERT INTO \"Societe\" (\"Nom\",\"Adresse\",\"Postal\",\"Ville\","
                      "\"Téléphone\") VALUES (?,?,?,?,?)");
    q.bind(1, TexteRange(r.Nom, 30).toStdString());
    q.bind(2, TexteRange(r.Adresse, 50).toStdString());
    q.bind(3, TexteRange(r.Postal, 6).toStdString());
    q.bind(4, TexteRange(r.Ville, 35).toStdString());
    q.bind(5, TexteRange(r.Telephone, 15).toStdString());
    q.exec();
    r.NumSoc = static_cast<table::Entier>(Base().getLastInsertRowid());
    return r.NumSoc;
}

bool MajSociete(int numSoc, table::Societe& r) {
    return acces::MajLigne("Societe", "NumSoc=?", r, numSoc);
}
