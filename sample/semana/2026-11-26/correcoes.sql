-- What no command corrects of the planted faults; posto vender and the shift commands do the rest.
DELETE FROM Recebimento WHERE Cd_PessoaUsuaria = 1 And No_Recebimento = 999999
UPDATE ItemCupomFiscal
SET    Cd_Abastecimento = (SELECT Cd_Abastecimento
                           FROM   Abastecimento
                           WHERE  De_EnderecoLogicoBico = '06' And No_Contador = 19373)
WHERE  No_Impressora = 1 And No_CupomFiscal = 4596 And No_Item = 1
-- The movement gets the next number of the ledger; the position behind it is worked out when the day is closed.
UPDATE SequenciadorGeral SET No_Sequencial = No_Sequencial + 1 WHERE Nm_Atributo = 'Cd_LancamentoCardex/1'
INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Vl_Unitario,
                    Tx_Icms, Cd_Produto)
SELECT 1, No_Sequencial, '2026-11-26', 'CF 925', 20, 2, 46.9, 0, Cd_Produto
FROM   SequenciadorGeral
       INNER JOIN Produto ON Produto.Cd_CodBarras = '7890000000109'
WHERE  Nm_Atributo = 'Cd_LancamentoCardex/1'
UPDATE ItemCupomFiscal
SET    Cd_LancamentoCardex = (SELECT No_Sequencial
                              FROM   SequenciadorGeral
                              WHERE  Nm_Atributo = 'Cd_LancamentoCardex/1')
WHERE  No_Impressora = 3 And No_CupomFiscal = 925 And No_Item = 1
