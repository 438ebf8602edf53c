-- The shop's last coupon is missing, with its line, its receipts and its place in the printer's log.
DELETE FROM Recebimento
WHERE  Cd_PessoaUsuaria = 1 And
       No_Recebimento In (SELECT No_Recebimento
                          FROM   RecebimentoCupom
                          WHERE  No_Impressora = 3 And No_CupomFiscal = 927)
DELETE FROM RecebimentoCupom WHERE No_Impressora = 3 And No_CupomFiscal = 927
DELETE FROM ItemCupomFiscal WHERE No_Impressora = 3 And No_CupomFiscal = 927
DELETE FROM CupomFiscal WHERE No_Impressora = 3 And No_CupomFiscal = 927
DELETE FROM LogDocumentoEmitidoECF WHERE No_Impressora = 3 And No_COO = 927
-- A line without ledger entry: two litres of oil on coupon 925 of printer 3.
DELETE FROM Cardex WHERE Dt_Emissao = '2026-11-26' And Nm_Doc = 'CF 925'
UPDATE ItemCupomFiscal SET Cd_LancamentoCardex = Null WHERE No_Impressora = 3 And No_CupomFiscal = 925
-- A fuelling posted twice: the line of one from nozzle 06 names one from nozzle 10, which was of as many litres.
UPDATE ItemCupomFiscal
SET    Cd_Abastecimento = (SELECT Cd_Abastecimento
                           FROM   Abastecimento
                           WHERE  De_EnderecoLogicoBico = '10' And No_Contador = 13569)
WHERE  Cd_Abastecimento = (SELECT Cd_Abastecimento
                           FROM   Abastecimento
                           WHERE  De_EnderecoLogicoBico = '06' And No_Contador = 19373)
-- A gap of 50 litres before a typed fuelling.
UPDATE Abastecimento
SET    Tp_OrigemRegistro = 3, No_EncerranteFechamento = No_EncerranteFechamento + 50
WHERE  De_EnderecoLogicoBico = '04' And No_Contador = 20527
-- A receipt without coupon.
INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Cd_TipoRecebimento, Dt_Recebimento,
                         Dt_Lancamento, Vl_Recebimento, Cd_Caixa, Ic_Suprimento)
Values (1, 999999, 20, 5, '2026-11-26', '2026-11-26', 10, 8, 0)
