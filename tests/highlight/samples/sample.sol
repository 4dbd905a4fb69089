// SPDX-License-Identifier: MIT
pragma solidity ^0.8.24;

import {Ownable} from "./Ownable.sol";

/// @title A small bank.
interface IBank {
    function deposit() external payable returns (uint256);
}

library Maths {
    function half(uint256 x) internal pure returns (uint256) { return x / 2; }
}

abstract contract Base is Ownable {
    error TooLittle(uint256 wanted, uint256 given);
    event Paid(address indexed who, uint256 amount);
}

/* Keeps what it
   is given. */
contract Bank is Base, IBank {
    using Maths for uint256;

    enum State { Open, Closed }
    struct Account { uint128 balance; bytes32 note; bool open; }

    mapping(address => Account) private accounts;
    uint256 public constant LIMIT = 1.5 ether;
    address payable immutable owner;
    State state = State.Open;
    bytes constant raw = hex"00ff";

    modifier whenOpen() {
        require(state == State.Open, "closed \"now\"");
        _;
    }

    constructor() { owner = payable(msg.sender); }

    function deposit() external payable override whenOpen returns (uint256) {
        if (msg.value < 0x10 gwei) revert TooLittle(16 gwei, msg.value);
        Account storage a = accounts[msg.sender];
        unchecked { a.balance += uint128(msg.value); }
        emit Paid(msg.sender, a.balance);
        for (uint8 i = 0; i < 3; ++i) { if (i != 1 && true) continue; else break; }
        return uint256(a.balance).half();
    }

    function free() public view returns (uint256 p) {
        assembly { p := mload(0x40) }
        try this.free() returns (uint256 v) { p = v; } catch { delete p; }
    }

    receive() external payable {}
}
