-- The statements that the program sends, one a paragraph, with values filled in. Each must run on
-- a file with the sample data. Lines that begin with two dashes are comments.

-- Housekeeping
UPDATE tblVerification SET UpdateSchedule = Now();

UPDATE tblVerification set UpdateRun = Now();

Select CurrencyID from tblCurrency WHERE Currency ='GBP'

UPDATE tblAccounts SET CloseAccount=0

UPDATE tblStockData SET [Occur] = 0 WHERE  IsNull([Occur])

INSERT into tblPeriods ([Period],[Description]) values ('1d','Once');

INSERT INTO tblStockData (DataID,[Name],[URL],[Key],[Type],[Occur],[Start],LookUpURL) VALUES (10,'Test Source','http://localhost/quote/STOCK','STOCK','STOCK',1,'class=" price"','');

UPDATE tblStockData SET [Name] = 'Google Finance Stock', Occur = 1, Start = 'class="pr"' WHERE DataID = 4

INSERT INTO tblCategory (CategoryID,Category,SubCategory,Budget,PeriodID,[Type],Description) VALUES (500,'Credit','',0.00,Null,1,'Credit');

INSERT INTO tblCategory (Category,SubCategory,Budget,PeriodID,[Type]) VALUES('Bills','Gas',0.00,Null,-1)

INSERT INTO tblHistory (HistoryID,PayeeID,[Date],Price) VALUES (50, 13,#11/18/2026#,3.18);

INSERT INTO tblSchedule (ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,TfrAccountID,[Amount],Description,DateFrom,NoTimes,AddToAccount) VALUES (3,1,124,3,11,6,Null,900.00,'',#10/21/2026#,0,1)

select ScheduleId, AllocatedItem FROM tblSchedule WHERE AllocatedItem <> 0

select ScheduleId, AllocatedItem, TfrAccountId FROM tblSchedule WHERE ScheduleId =1

select TransactionId, AllocatedItem, TransferId FROM tblTransactions WHERE TransactionID =3

Delete From tblTransactions WHERE AccountId = 0

-- Transactions
select t.*, c.Category, c.SubCategory from tblTransactions t, tblCategory c Where t.categoryID = c.categoryID AND t.AllocatedItem = 3

Select A.*, C.Currency from tblAccounts A LEFT JOIN tblCurrency C   ON A.CurrencyID = C.CurrencyID Where AccountID = 1

UPDATE tblTransactions set AccountId = 1,PaymentId = 2,PayeeID = 3,CategoryID = 4 WHERE ([Action] = 0) AND (TransactionID = 5)

UPDATE tblTransactions set BankChk = 1, BankRec = 0 WHERE AllocatedItem = 3

UPDATE tblTransactions set [Amount] = -1*[Amount] WHERE [Action] = 0 AND TransferID = 0 AND TransactionID = 5

UPDATE tblTransactions set [Amount] = -1*[Amount] WHERE AllocatedItem = 5

Select top 1 t.* from tblTransactions t INNER JOIN tblPayees p ON t.PayeeId = p.PayeeId Where t.AllocatedItem = 0 AND t.AccountId = 1 AND t.PayeeId = 5 AND CategoryID = 8 Order by [Date] DESC, TransactionID DESC

Select top 1 t.* from tblTransactions t Where t.TransactionID = 5

Select * from tblKeywordLink kl INNER JOIN tblKeywords k on k.KeywordId = kl.KeywordId Where TransactionID = 5

INSERT INTO tblKeywordLink (KeywordId, TransactionId)  VALUES (1,5)

DELETE FROM tblKeywordLink WHERE KeyWordId = 1 AND TransactionId = 5

Delete from tblKeywords Where KeywordId =1

Delete from tblAttachments Where TransactionId =5

Insert INTO tblTransactions (AccountID,[Action],AllocatedItem,[Amount],BankChk,BankRec,CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,Shares,TransferID) SELECT 1,[Action],AllocatedItem,[Amount],BankChk,BankRec,CategoryID,Commission,[Date],Description,Dividend,PayeeID,PaymentID,[Price],Reference,Shares,TransferID from tblTransactions WHERE TransactionId = 5

Select Max(TransactionID) as TransactionID from tblTransactions

Insert INTO tblAttachments (TransactionId,AttachmentFile,AttachmentPath,AttachmentStore) SELECT 39, AttachmentFile,AttachmentPath,AttachmentStore from tblAttachments WHERE TransactionId = 5

Insert INTO tblSchedule (AccountID,AddToAccount,AllocatedItem,[Amount],CategoryID,[DateFrom],Description,NoTimes,PayeeID,PaymentID,PeriodID,Reference,TfrAccountID) SELECT AccountID,AddToAccount,AllocatedItem,[Amount],CategoryID , [DateFrom], Description, NoTimes, PayeeID, PaymentID, PeriodID, Reference, TfrAccountID from tblSchedule WHERE ScheduleId = 1

Select Max(ScheduleID) as ScheduleID from tblSchedule

Select * from tblSchedule Where AllocatedItem = 1

UPDATE tblTransactions SET TransferID = 5 WHERE TransactionID = 6

DELETE FROM tblTransactions WHERE AllocatedItem = 5 OR AllocatedItem = 6

UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = 5

Select SUM(Amount) as AAmount from tblTransactions Where AllocatedItem = 3

UPDATE tblTransactions SET [Amount] = -45.46 WHERE TransactionId = 3

UPDATE tblTransactions SET [Date] = #11/13/2026#, BankChk = 1, BankRec = 0 WHERE AllocatedItem = 3

Delete From tblTransactions Where AllocatedItem  = 3

SELECT A.Account, MID([C.CATEGORY],9,len(CATEGORY)-8) as TransferAccount, T.TransactionID, T.Amount, T.[Date], T.PayeeID  FROM tblCategory C INNER JOIN (tblAccounts A INNER JOIN tblTransactions T ON A.AccountID = T.AccountID)  ON C.CategoryID = T.CategoryID WHERE InStr([C.CATEGORY],'Account:') <> 0 and T.TransferID = 0  AND T.AllocatedItem = 0 AND T.[Action] = 0 ORDER by T.TransactionID ASC

Select T.TransactionID, T.Amount FROM tblAccounts A INNER JOIN tblTransactions T ON A.AccountID = T.AccountID  WHERE A.Account = 'Sample Bank Account' AND T.[Date] =#11/11/2026 # AND T.PayeeID = 1 AND T.AllocatedItem = 0 AND T.[Action] = 0 AND TransferID = 0 ORDER by T.TransactionID ASC

UPDATE tblTransactions SET TransferID = 6, PayeeID = 2, CategoryID = 1 WHERE TransactionID = 5

-- Status and balances
UPDATE tblTransactions Set BankRec = 1 WHERE TransactionID =5

UPDATE tblTransactions Set BankChk = 1 WHERE AllocatedItem =5

Update tblTransactions Set BankSch = 0 Where TransactionID = 11

Select (Sum(t.Amount) + a.OpeningBalance) AS Balance, SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as Expense from tblTransactions t, tblCategory c, tblAccounts a Where c.CategoryID = t.CategoryID AND t.accountId = a.accountID AND AllocatedItem = 0 AND BankRec = 0 AND Date Between #10/01/2026# AND #11/21/2026# AND t.AccountID =1 Group by a.OpeningBalance

Select (Sum(t.Amount) + a.OpeningBalance) AS Balance, SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as Expense from tblTransactions t, tblCategory c, tblAccounts a Where c.CategoryID = t.CategoryID AND t.accountId = a.accountID AND AllocatedItem = 0 AND NOT(BankChk = 1 AND BankRec = 0)  AND t.AccountID =1 Group by a.OpeningBalance

Select Count(*) as RecCount From tblTransactions Where AllocatedItem = 0 AND Bankchk = 0 AND AccountID =1

Select Sum(t.Amount) AS Balance  from ((tblTransactions t INNER JOIN tblCategory c ON t.CategoryID = c.CategoryID)  INNER JOIN tblAccounts a ON t.AccountID=a.AccountID) WHERE AllocatedItem = 0  AND 1 > 0 AND  A.AccountID=1 Group by a.AccountID,  OpeningBalance

SELECT SUM(iif(T.Action = 2 OR T.Action = 6, -1 * Shares, Shares)) as Total, T.PayeeID from ((tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID) INNER JOIN tblPayees P ON P.PayeeID = T.PayeeID) WHERE  P.Investment = 1 AND A.AccountID=1 Group By T.PayeeID 

Select Top 1 Price from tblHistory WHERE PayeeId = 13 Order by [Date] Desc, HistoryID Desc

Select (Sum(t.Amount)) AS RunBalance from tblTransactions t, tblCategory c, tblAccounts a Where t.AllocatedItem = 0 AND c.CategoryID = t.CategoryID AND t.accountId = a.accountID AND BankRec = 0 AND Date <= #11/21/2026# AND t.AccountID =1

Select t.* from tblTransactions t LEFT JOIN (SELECT Distinct TransactionID From tblAttachments) aa ON t.TransactionID = aa.TransactionID

-- Schedules
select S.*, P.Period, P.Description as PDesc from  (tblSchedule S  INNER JOIN tblCategory C ON C.CategoryID = S.CategoryID)  INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID  Where ScheduleId = 1

Select Max(T.ScheduleDate) as cDate, Count(T.TransactionID) as cRows, S.[NoTimes], P.[Period] FROM (tblSchedule S INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID) INNER JOIN tblTransactions T ON (T.AccountID = S.AccountID) AND (S.ScheduleID = T.BankSch) WHERE T.AllocatedItem = 0 And T.BankSch = 1 AND DateFrom < #11/21/2026# GROUP BY S.[NoTimes], P.[Period]

UPDATE tblSchedule SET DateFrom = #12/21/2026#, NoTimes =0 Where ScheduleId = 1

Select TransactionId, TransferId, AllocatedItem from tblTransactions Where BankSch = 1

Select S.* from tblSchedule S INNER JOIN tblAccounts A ON S.AccountID = A.AccountID  Where CloseAccount <> 1 AND AllocatedItem = 0

Select Count(T.TransactionID) as cRows from tblTransactions  T INNER JOIN tblSchedule S ON S.ScheduleId = T.BankSch AND S.AccountID = T.AccountId  Where T.AllocatedItem = 0 And T.BankSch = 1

Select * from tblTransactions Where AllocatedItem = 0 AND BankSch = 1 AND ScheduleDate = #11/21/2026#

Select t.* FROM tblTransactions t WHERE BankSch = 1 AND t.ScheduleDate = #11/21/2026# Order by ScheduleDate, TransactionID

Select ScheduleID, DateFrom, p.Description as Period, pp.Payee, Amount, S.Description as sDes, S.TfrAccountID, 1 as Tfrtype from ((tblSchedule S INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID) INNER JOIN tblPayees PP ON S.PayeeID = PP.PayeeID) INNER JOIN tblAccounts A ON A.AccountID = S.AccountID WHERE S.AllocatedItem = 0 AND ScheduleID > 0  AND CloseAccount <> 1 UNION Select ScheduleID, DateFrom, p.Description as Period, pp.Payee, Amount, S.Description as sDes, S.TfrAccountID, 2 as Tfrtype from ((tblSchedule S INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID) INNER JOIN tblPayees PP ON S.PayeeID = PP.PayeeID) INNER JOIN tblAccounts A ON A.AccountID = S.TfrAccountID WHERE S.AllocatedItem = 0 AND ScheduleID > 0  AND CloseAccount <> 1 Order By [DateFrom], ScheduleID

Select T.ScheduleDate as [MinDate] from (tblTransactions T INNER JOIN tblAccounts A ON A.AccountID = T.AccountID)  INNER JOIN tblSchedule S ON S.ScheduleId = T.BankSch WHERE T.AllocatedItem = 0 AND T.BankChk = 0 AND A.AccountID = 1 Order By T.ScheduleDate ASC

-- Names
select * from tblPayments where lcase(Payment) = 'o''brien [x] 100%'

INSERT INTO tblPayments (Payment) VALUES('O''Brien [x] 100%')

Select * From tblPayees Where lcase(Payee) ='acme company' AND Investment = 0

INSERT INTO tblPayees (Payee, Investment) VALUES('Straße & Söhne',0)

Select * from tblCategory where lcase(Category) = 'bills' AND lcase(SubCategory) = 'gas'

Select * from tblCategory Where lcase(Category) = 'bills' AND (SubCategory = '' OR IsNull(SubCategory))

SELECT * FROM tblCategory WHERE (IsNull(SubCategory) OR SubCategory = '') Order By Category

-- Reconciliation
Select OpeningBalance from tblAccounts WHERE AccountID= 1

Select Sum(t.Amount) AS Balance from ((tblTransactions t INNER JOIN tblCategory c ON t.CategoryID = c.CategoryID)  INNER JOIN tblAccounts a ON t.AccountID=a.AccountID) WHERE t.AllocatedItem = 0 AND BankRec = 1 AND A.AccountID=1 Group by a.AccountID 

Select t.*, IIf(t1.AllocatedItem <> 0,'TRUE','') AS Allocated, c.Category, C.subcategory, p.Payee, p.Symbol FROM (select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0) AS t1 RIGHT JOIN ((tblTransactions AS t INNER JOIN tblCategory AS c ON t.CategoryID = c.CategoryID) INNER JOIN tblPayees AS p ON t.PayeeID = p.PayeeID) ON t1.AllocatedItem = t.TransactionID Where t.AllocatedItem = 0 AND 1 > 0 AND AccountID = 1 Order by t.Date DESC, t.TransactionId 

-- Investments and prices
Select * from tblPayees Where Investment = 1 AND Payee = 'British Telecom'

Select * From tblPayees Where lcase(Payee) ='british telecom' AND lcase([Symbol]) ='bt-a.l' AND Investment = 1

INSERT INTO tblPayees (Payee, [Symbol], CurrencyID, InvestCurrencyID, Description,DataId, Conversion, Investment) VALUES('Acme','ACM',17,17,'',2,1,1)

Select P.PayeeID as InvestID, P.Payee as Investment, P.CurrencyID, CC.Currency, CI.CurrencyID as InvestCurrencyID, CI.Currency as InvestCurrency,P.DataID, P.[Conversion], P.Symbol, P.Description from ((tblPayees P INNER JOIN tblCurrency CC ON CC.CurrencyID = P.CurrencyID) LEFT JOIN tblCurrency CI ON CI.CurrencyID = P.InvestCurrencyID) WHERE Investment = 1 AND P.PayeeID = 12 Order by CC.Currency, P.Payee

Select * from tblStockData WHERE UCASE([Type])='STOCK'

Select TOP 1 A.*, C.Currency from tblAccounts A LEFT JOIN tblCurrency C ON  A.CurrencyID = C.CurrencyID ORDER BY AccountID DESC

Select DataID,[Name],[URL], [KEY], [Type], LookUpUrl, [Occur], [Start] FROM tblStockData WHERE UCASE([Type]) ='CURRENCY' Order by [Name] ASC

Select * from tblHistory Where PayeeID = 13 AND [Date] = #11/18/2026#

Select * from tblHistory Where PayeeID = 13 Order by [Date] Desc, HistoryID Desc

-- Import
Select * From tblAccounts Where lcase(AccountNo) ='12345678'

Select T.*, P.* From tblTransactions as T INNER JOIN tblPayees AS P ON T.PayeeId = P.PayeeId Where [AccountID] = 1 AND [Amount] = -200 AND [Date] = #11/11/2026# AND P.[Investment] = 0 AND AllocatedItem = 0

Select TransactionID From tblTransactions Where [AccountID] = 1 AND [Amount] = -316 AND [Date] = #11/21/2026# AND [PayeeID] = 13 AND [CategoryID] = 2 AND [Action] = 1 AND [Dividend] = 0 AND [Shares] = 100 AND [Price] = 3.16 AND [Commission] = 0

Select a.Account from tblAccounts a INNER JOIN tblTransactions t ON a.AccountID = t.AccountID Where t.TransactionId = 5

-- Reference data
Select * From tblAccountType Where lcase(AccountType) ='bank accounts'

INSERT INTO tblAccountType (AccountType) VALUES('Savings')

Select * From tblBank Where lcase(Bank) ='halifax'

Select * from tblKeywords where lcase(Keyword) ='holiday'

Select * from tblAccounts Where Account = 'Sample Bank Account'

Select * from tblCategory Where Category = 'Bills' AND SubCategory =  'Gas'

Update tblCategory SET [Type] = -1,Category = 'Groceries' Where lcase(Category) = 'shopping'

Delete From tblBank Where BankID = 2 AND BankID NOT IN (Select BankID from tblAccounts Where BankID = 2)

Delete From tblAccountType Where AccountTypeID = 2 AND AccountTypeID NOT IN (Select AccountTypeID from tblAccounts)

Delete From tblPayments Where PaymentID = 1 AND PaymentID NOT IN (Select PaymentID from tblTransactions) AND PaymentID NOT IN (Select PaymentID from tblSchedule) AND Payment <> 'Import' 

Delete From tblPayees Where PayeeID = 13 AND PayeeID NOT IN (Select PayeeID from tblTransactions) AND PayeeID NOT IN (Select PayeeID from tblSchedule) AND PayeeID NOT IN (Select PayeeID from tblHistory)

Delete From tblCategory Where CategoryID = 1 AND CategoryID NOT IN (Select CategoryID from tblTransactions) AND CategoryID NOT IN (Select CategoryID from tblSchedule) AND Category NOT IN ('Credit','Debit') 

Select CategoryID from tblCategory WHERE (Category = 'Bills') AND ((NOT IsNull(SubCategory)) AND Len(SubCategory) > 0)

Select Count(*) as CAccount from ((tblAccounts A LEFT JOIN tblTransactions T ON A.AccountID = T.AccountID) LEFT JOIN tblSchedule S ON A.AccountID = S.AccountID) WHERE A.AccountID = 1

update tblTransactions set CategoryID = 5 Where CategoryID = 4

update tblSchedule set PayeeID = 5 Where PayeeID = 4

-- Reports
SELECT Currency, CU.CurrencyID, Sum(OpeningBalance) as OpeningBalance From tblAccounts A INNER JOIN tblCurrency CU ON A.CurrencyId = CU.CurrencyID WHERE CloseAccount <> 1 GROUP BY CU.CurrencyID, Currency

SELECT A.AccountID, A.Account, A.OpeningBalance, CU.Currency, IIF(Currency='GBP',1,1 ) AS Exchange FROM tblCurrency AS CU INNER JOIN tblAccounts AS A ON CU.CurrencyID = A.CurrencyId WHERE CloseAccount <> 1  Group By A.AccountID, Account, OpeningBalance, Currency

SELECT SUM(Amount) as RunBal, Currency, IIF(Currency='EUR',0.87,IIF(Currency='USD',1.31,1 )) AS Exchange FROM ((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID) LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE 1 > 0 AND CloseAccount <> 1 AND T.[DATE] <= #11/20/2026#  AND T.AllocatedItem = 0 AND A.AccountID =1 GROUP BY Currency,IIF(Currency='EUR',0.87,IIF(Currency='USD',1.31,1 ))

SELECT Sum(iif(Amount < 0,Amount,0)) as [Expense],  Sum(iif(Amount >= 0,Amount,0)) as [Income], CU.Currency, 1  AS Exchange FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId)  LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE BankRec = 0 AND CloseAccount <> 1 AND  (T.TransferID = 0 or isNull(T.TransferID))   AND T.AllocatedItem = 0 AND A.AccountID = 1 Group by CU.Currency

Select cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),cstr(Month([Date])))) as SYEAR, SUM(iif(Amount > 0,Amount,0)) as Income, SUM(iif(Amount < 0,Amount,0)) as Expense, CC.Currency, 1  AS Exchange From tblKeywordLink K RIGHT JOIN ((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblCurrency AS CC ON A.CurrencyId = CC.CurrencyID) INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) ON T.TransactionId = K.TransactionID  WHERE 1 > 0 AND CloseAccount <> 1  AND T.AllocatedItem = 0 GROUP BY cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),cstr(Month([Date])))),CURRENCY, 1 ORDER BY cstr(Year([DATE]))+(iif(len(cstr(Month([DATE])))=1,'0'+cstr(Month([Date])),cstr(Month([Date])))),CURRENCY 

SELECT A.Account, T.TransactionID, iif(Amount < 0,Amount,0) as [Expense],  iif(Amount >= 0,Amount,0) as [Income], T.Date, T.Action, T.Reference, T.Description, T.BankChk, T.BankRec, T.TransferId, C.Category, C.SubCategory, P.Payment, PP.Payee, CU.Currency, 1  AS Exchange FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE NOT(BankChk = 0 AND BankRec = 0) AND CloseAccount <> 1 AND [Date] Between #10/01/2026# AND #11/21/2026# AND (T.AccountID IN (1,2)) AND (T.Amount like '%20%' OR T.Description like '%20%' OR t.Reference like '%20%' OR PP.PAYEE like '%20%' OR C.CATEGORY like '%20%' OR C.SUBCATEGORY like '%20%') AND T.TransactionId NOT IN (3,5) Order by [DATE], T.TransactionID

select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0 AND AllocatedItem NOT IN (Select TransactionID from tblKeywordLink WHERE KeywordID in (1,2)) Order by AllocatedItem

SELECT DateDiff('d',Min(T.Date), Max(T.Date)) As TotalDays FROM tblTransactions AS T INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID WHERE A.AccountID IN (1) 

Select CategoryID, Category, SubCategory, SUM(Type*Budget) as Budget, Period FROM tblCategory C LEFT JOIN tblPeriods Per  ON C.PeriodId = Per.PeriodID  Group by CategoryID, Category, SubCategory, Period Order by Category, SubCategory

Select Max(CategoryID) as CategoryID, Category, '' as SubCategory, SUM(Type*Budget) as Budget, Max(Period) as Period FROM tblCategory C LEFT JOIN tblPeriods Per  ON C.PeriodId = Per.PeriodID  Group by Category Order by Category

SELECT SUM(AMOUNT) as sAmount, CU.Currency, 1  AS Exchange FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE 1 > 0 AND T.TransactionId NOT IN () AND C.CategoryID = 8GROUP BY Currency, 1 

SELECT Count(T.TransactionId) as NRecords, Sum(iif(Amount < 0,Amount,0)) as [Expense],  sum(iif(Amount > 0,Amount,0)) as [Income],max(C.CategoryID) as CategoryID, C.Category, '' as SubCategory, CU.Currency, 1  AS Exchange FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE 1 > 0 AND T.TransactionId NOT IN (3,5)GROUP BY C.Category, CU.Currency,1  ORDER BY C.Category

Select iif(Month(DATE)=1,SUM(Amount),0) as [JAN], iif(Month(DATE)=10,SUM(Amount),0) as [OCT],iif(Month(DATE)=11,SUM(Amount),0) as [NOV], C.CategoryID, C.Category, C.SubCategory, CC.Currency, 1  AS Exchange From tblKeywordLink K RIGHT JOIN ((((tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblCurrency AS CC ON A.CurrencyId = CC.CurrencyID) INNER JOIN tblPayees AS PP ON T.PayeeId = PP.PayeeID) ON T.TransactionId = K.TransactionID  WHERE 1 > 0 AND T.TransactionId NOT IN (3,5)GROUP BY MONTH(Date), C.CategoryID, Category, SubCategory, Currency, 1 ORDER BY Category, SubCategory, Currency 

SELECT Count(T.TransactionId) as NRecords, Sum(iif(Amount < 0,Amount,0)) as [Expense],  Sum(iif(Amount > 0,Amount,0)) as [Income],PP.PayeeID, PP.Payee, CU.Currency, T.TransferID,1  AS Exchange FROM (tblCurrency AS CU INNER JOIN ((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) ON CU.CurrencyID = A.CurrencyId) LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE 1 > 0 AND (K.KeywordID IN (1)) AND (P.PaymentID IN (2,3))  AND T.AllocatedItem = 0 GROUP BY PP.PayeeID, PP.Payee, CU.Currency,1 ,TransferID ORDER BY PP.Payee

SELECT Currency, CU.CurrencyID From tblPayees P INNER JOIN tblCurrency CU ON CU.CurrencyID = P.CurrencyID WHERE Investment = 1 GROUP BY CU.CurrencyID, Currency

Select P.PayeeID as InvestID, P.Payee as Investment, P.CurrencyID, CC.Currency, P.DataID, P.[Conversion], P.Symbol, P.Description,1  As Exchange From tblPayees P INNER JOIN tblCurrency CC ON CC.CurrencyID = P.CurrencyID WHERE Investment = 1  Order By P.Payee

SELECT T.TransactionID, PP.Symbol, T.Dividend,T.Price,T.Shares,T.Commission, Amount, T.Date, T.Action, T.Description, C.Category, P.Payment, PP.Payee, A.Account, CU.Currency,1  AS Exchange FROM (((tblPayees AS PP INNER JOIN (tblPayments AS P INNER JOIN (tblCategory AS C INNER JOIN tblTransactions AS T ON C.CategoryID = T.CategoryID) ON P.PaymentID = T.PaymentID) ON PP.PayeeID = T.PayeeID) INNER JOIN tblAccounts AS A ON T.AccountID = A.AccountID) INNER JOIN tblCurrency AS CU ON A.CurrencyId = CU.CurrencyID)  LEFT JOIN tblKeywordlink K ON K.TransactionId = T.TransactionID  WHERE 1 > 0 AND PP.Investment = 1  Order By PP.Payee, [DATE], T.TransactionID

-- Upgrade of old layouts
ALTER TABLE tblTransactions ADD COLUMN [TEMPINT] INT DEFAULT 0

ALTER TABLE tblAccounts ALTER COLUMN [OpeningBalance] DOUBLE DEFAULT 0

ALTER TABLE tblPayees ALTER COLUMN [Conversion] DOUBLE DEFAULT 0

DROP INDEX AllocatedItem ON tblTransactions

CREATE INDEX Another ON tblSchedule (AllocatedItem)

ALTER TABLE tblAttachments DROP COLUMN AttachmentStore

DROP TABLE tblKeywords
