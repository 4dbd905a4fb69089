// A counter with a small test bench.
`timescale 1ns / 1ps
`define WIDTH 8

module counter #(parameter int W = `WIDTH) (
    input  wire          clk,
    input  wire          rst_n,
    output logic [W-1:0] value
);
    localparam logic [W-1:0] TOP = 8'hFF;
    typedef enum logic [1:0] { IDLE, RUN = 2'b1x } state_t;
    state_t state;

    /* Up, and
       around. */
    always_ff @(posedge clk or negedge rst_n) begin
        if (!rst_n) value <= '0;
        else if (value == TOP) value <= 4'd0;
        else value <= value + 1'b1;
    end

    always_comb
        case (state)
            IDLE: state = RUN;
            default: state = IDLE;
        endcase

    assign ready = &value && (state != RUN);

    property p_up;
        @(posedge clk) disable iff (!rst_n) value |-> ##1 $past(value) >= 0;
    endproperty
    assert property (p_up) else $error("lost \"count\"");
endmodule

class Packet;
    rand bit [7:0] data[];
    constraint small_c { data.size() inside {[1:16]}; }
    function new(); super.new(); endfunction
endclass

module tb;
    logic clk = 0, rst_n = 0;
    wire [7:0] value;
    counter #(.W(8)) dut (.clk, .rst_n, .value(value));
    always #5 clk = ~clk;
    initial begin
        $display("start %0d at %t", value, $time);
        repeat (10) @(posedge clk);
        $finish;
    end
endmodule
