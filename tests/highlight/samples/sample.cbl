000100 IDENTIFICATION DIVISION.
000200 PROGRAM-ID. SAMPLE.
000300* Reads accounts and prints the rich ones.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT ACCOUNT-FILE ASSIGN TO "ACCOUNTS.DAT"
               ORGANIZATION IS LINE SEQUENTIAL
               FILE STATUS IS WS-STATUS.
       DATA DIVISION.
       FILE SECTION.
       FD  ACCOUNT-FILE.
       01  ACCOUNT-RECORD.
           05  ACC-NAME        PIC X(20).
           05  ACC-BALANCE     PIC S9(7)V99 COMP-3.
           88  ACC-EMPTY       VALUE ZERO.
       WORKING-STORAGE SECTION.
       77  WS-STATUS           PIC XX VALUE SPACES.
       01  WS-TOTAL            PIC $$,$$9.99.
       01  WS-COUNT            PIC 9(4) VALUE 0.
       PROCEDURE DIVISION.
       MAIN-PARAGRAPH.
           OPEN INPUT ACCOUNT-FILE
           PERFORM UNTIL WS-STATUS NOT = "00"
               READ ACCOUNT-FILE
                   AT END MOVE "10" TO WS-STATUS
                   NOT AT END PERFORM COUNT-ACCOUNT
               END-READ
           END-PERFORM
           CLOSE ACCOUNT-FILE
           DISPLAY "Said ""rich"": " WS-COUNT *> the end
           STOP RUN.
       COUNT-ACCOUNT.
           IF ACC-BALANCE > 1000.50 AND NOT ACC-EMPTY
               ADD 1 TO WS-COUNT
               COMPUTE WS-TOTAL ROUNDED = ACC-BALANCE * 1.19
           ELSE
               EVALUATE TRUE
                   WHEN ACC-BALANCE < 0 CONTINUE
                   WHEN OTHER MOVE FUNCTION TRIM(ACC-NAME) TO WS-STATUS
               END-EVALUATE
           END-IF.
