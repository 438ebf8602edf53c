-- What no command corrects of the planted faults; posto vender and the shift commands do the rest.
DELETE FROM Recebimento WHERE Cd_PessoaUsuaria = 1 And No_Recebimento = 999999
UPDATE ItemCupomFiscal
SET    Cd_Abastecimento = 631
WHERE  No_Impressora = 1 And No_CupomFiscal = 4596 And No_Item = 1
-- The position behind the movement is worked out when the day is closed.
INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Vl_Unitario,
                    Tx_Icms, Cd_Produto)
Values (1, 674, '2026-11-26', 'CF 925', 20, 2, 46.9, 0, 5)
UPDATE ItemCupomFiscal
SET    Cd_LancamentoCardex = 674
WHERE  No_Impressora = 3 And No_CupomFiscal = 925 And No_Item = 1
