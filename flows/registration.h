// Registers a station from a folder of CSV files.
#pragma once

#include <string>
#include <vector>

#include "flows/station.h"

namespace posto::flows {

struct Registered {
  std::string file;
  bool found = false;  // the folder has the file
  std::size_t added = 0;
  std::size_t changed = 0;  // stood there already
};

// Reads, in this order, empresa.csv (nome,corte), grupos.csv (nome), produtos.csv (codigo_barras,nome,grupo,tipo,
// combustivel,preco,unidade), tubulacoes.csv (tubulacao,produto), bicos.csv (bico,endereco,produto,tubulacao,
// encerrante_inicial,bomba,descricao) and compras.csv (data,documento,produto,quantidade,custo_unitario,aliquota_icms).
// Products are known by their bar code, groups by name, nozzles by number, a purchase by day, document and product:
// what stands there already is changed (a purchase is left alone), so that a folder can be registered again. Then come
// the files that are named after a table of the master data (records.h): UF.csv, Cliente.csv, Veiculo.csv, ...
//
// A purchase is a ledger movement of type 10 that moves the product's stock, average cost and ICMS credit.
// All of it stands in one transaction: any fault raises 0x80040660 with file and line, and nothing is registered.
std::vector<Registered> register_station(Station& station, const std::string& folder);

}  // namespace posto::flows
